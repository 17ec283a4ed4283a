#include "platform/AnsiText.h"
#include "platform/DateText.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

TEST(AnsiText, EveryCharacterOfTheCodePageMakesTheRoundTrip)
{
  int characters = 0;
  for (int lead = 0x81; lead <= 0xFE; ++lead)
    for (int trail = 0x40; trail <= 0xFE; ++trail) {
      const QByteArray bytes{QByteArray(1, char(lead)) + char(trail)};
      const QString text = AnsiText::decode(bytes);
      if (text.size() != 1 || text.contains(QChar::ReplacementCharacter))
        continue;
      ++characters;
      EXPECT_EQ(AnsiText::encode(text), bytes);
      EXPECT_TRUE(AnsiText::holds(text)) << bytes.toHex().toStdString();
    }
  EXPECT_GE(characters, 21700) << "21,003 ideographs, and symbols";
}

TEST(AnsiText, WhatIsNotInTheCodePageBecomesAQuestionMark)
{
  EXPECT_EQ(AnsiText::encode("付😀款"), AnsiText::encode("付?款"));
  EXPECT_FALSE(AnsiText::holds("付😀款"));
  EXPECT_TRUE(AnsiText::holds("付款"));
  EXPECT_FALSE(AnsiText::holds(QString(QChar(0xD800))));
}

TEST(Trim, CutsSpacesAndNothingElse)
{
  for (const auto& [text, trimmed] : {std::pair{"  a b  ", "a b"}, {"   ", ""}, {"\ta\n", "\ta\n"}, {"　全角　", "　全角　"}})
    EXPECT_EQ(Trim(QString(text)), trimmed);
}

TEST(DateText, ReadsEveryWayInWhichTheSuiteWritesADateAndNothingElse)
{
  const QString dates = "2022-06-08|2022-6-8|2022/6/8|2022.06.08| 2022-06-08 |2022-06-08 09:30:00|2022/6/8 9:30|2022-06-08T09:30:00";
  for (const QString& text : dates.split('|'))
    EXPECT_EQ(DateText::parse(text), QDate(2022, 6, 8)) << shown(text);
  EXPECT_EQ(DateText::parse(u"2024-02-29"), QDate(2024, 2, 29));
  const QString others =
      "| |abc|2022|2022-06|2022-06-|22-06-08|2022-02-29|2022-13-01|2022-00-10|2022-06-31|2022-06-081|2022-6/8|0000-01-01|"
      "-2022-06-08|2022-06-08 abc|2022-06-08 9:60:00|2022-06-08 9:00:60|2022-06-08 24:00|20220608|２０２２-06-08";
  for (const QString& text : others.split('|'))
    EXPECT_FALSE(DateText::parse(text)) << shown(text);
}

TEST(DateText, BuildingADayThatDoesNotExistIsARunTimeError)
{
  EXPECT_EQ(DateText::shortForm(DateText::build(2022, 6, 8)), "2022-06-08");
  EXPECT_THROW(DateText::build(2022, 2, 30), RunTimeError);
  EXPECT_THROW(DateText::build(0, 0, 0), RunTimeError);
}
