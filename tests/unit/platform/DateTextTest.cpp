#include "platform/DateText.h"

#include "platform/RunTimeError.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(DateText, ReadsEveryWayInWhichTheFamilyWritesADate)
{
  const QDate day(2022, 6, 8);
  for (const QStringView text : {u"2022-06-08", u"2022-6-8", u"2022/6/8", u"2022.06.08", u" 2022-06-08 ", u"2022-06-08 09:30:00",
                                 u"2022/6/8 9:30", u"2022-06-08T09:30:00"})
    EXPECT_EQ(DateText::parse(text), day) << shown(text);
  EXPECT_EQ(DateText::parse(u"2024-02-29"), QDate(2024, 2, 29));
}

TEST(DateText, WhatIsNoDateIsNone)
{
  for (const QStringView text :
       {u"", u" ", u"abc", u"2022", u"2022-06", u"2022-06-", u"22-06-08", u"2022-02-29", u"2022-13-01", u"2022-00-10", u"2022-06-31",
        u"2022-06-081", u"2022-6/8", u"0000-01-01", u"-2022-06-08", u"2022-06-08 abc", u"2022-06-08 9:60:00", u"2022-06-08 24:00", u"20220608", u"２０２２-06-08"})
    EXPECT_FALSE(DateText::parse(text)) << shown(text);
}

TEST(DateText, BuildingADayThatIsNotThereIsARunTimeError)
{
  EXPECT_EQ(DateText::shortForm(DateText::build(2022, 6, 8)), u"2022-06-08"_s);
  EXPECT_THROW(DateText::build(2022, 2, 30), RunTimeError);
  EXPECT_THROW(DateText::build(0, 0, 0), RunTimeError);
}
