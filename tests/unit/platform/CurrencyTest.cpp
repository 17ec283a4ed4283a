#include "platform/Currency.h"

#include "platform/RunTimeError.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

#include <limits>

namespace {

constexpr auto Largest = Currency::ofTenThousandths(std::numeric_limits<std::int64_t>::max());
constexpr auto Smallest = Currency::ofTenThousandths(std::numeric_limits<std::int64_t>::min());

} // namespace

TEST(Currency, RoundsToFourDecimalsHalfToEvenAsTheNumberReads)
{
  struct Row {
    double value;
    QStringView text;
  };
  for (const auto& [value, text] : {
           Row{1.00005, u"1"},
           Row{1.00015, u"1.0002"},
           Row{1.00025, u"1.0002"},
           Row{1.000251, u"1.0003"},
           Row{-1.00015, u"-1.0002"},
           Row{0.00005, u"0"},
           Row{-0.00004, u"0"},
           Row{9.99995, u"10"},
       })
    EXPECT_EQ(Currency::ofDouble(value).toText(), text);
}

TEST(Currency, AddsExactlyWhereBinaryDoesNot)
{
  Currency sum;
  for (int i = 0; i < 1000; ++i)
    sum += Currency::ofText(u"0.1");
  EXPECT_EQ(sum, Currency::ofDouble(100));
  EXPECT_EQ((Currency::ofText(u"0.3") - Currency::ofText(u"0.1")).toText(), u"0.2"_s);
  EXPECT_TRUE((sum - sum).isZero());
}

TEST(Currency, WhatDoesNotFitIsAnOverflowAndNeverAWrongAmount)
{
  EXPECT_EQ(Currency::ofDouble(922337203685477.0).toText(), u"922337203685477"_s);
  EXPECT_EQ(Largest.toText(), u"922337203685477.5807"_s);
  EXPECT_EQ(Smallest.toText(), u"-922337203685477.5808"_s);
  EXPECT_THROW(Currency::ofDouble(922337203685478.0), RunTimeError);
  EXPECT_THROW(Currency::ofDouble(std::numeric_limits<double>::infinity()), RunTimeError);
  EXPECT_THROW(Currency::ofText(u"1e30"), RunTimeError);
  EXPECT_THROW(Largest + Currency::ofTenThousandths(1), RunTimeError);
  EXPECT_THROW(Smallest - Currency::ofTenThousandths(1), RunTimeError);
  EXPECT_THROW(-Smallest, RunTimeError);
}
