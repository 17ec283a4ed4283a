#include "platform/Currency.h"
#include "platform/NumberText.h"
#include "platform/RunTimeError.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Decimal = std::pair<double, const char*>;

constexpr auto Largest = Currency::ofTenThousandths(std::numeric_limits<std::int64_t>::max());
constexpr auto Smallest = Currency::ofTenThousandths(std::numeric_limits<std::int64_t>::min());

} // namespace

TEST(Currency, RoundsToFourDecimalsHalfToEvenAsTheNumberReads)
{
  const Decimal rows[] = {{1.00005, "1"},        {1.00015, "1.0002"}, {1.00025, "1.0002"}, {1.000251, "1.0003"},
                          {-1.00015, "-1.0002"}, {0.00005, "0"},      {-0.00004, "0"},     {9.99995, "10"}};
  for (const auto& [value, text] : rows)
    EXPECT_EQ(Currency::ofDouble(value).toText(), text);
}

TEST(Currency, AddsExactlyWhereBinaryDoesNot)
{
  Currency sum;
  for (int i = 0; i < 1000; ++i)
    sum += Currency::ofText(u"0.1");
  EXPECT_EQ(sum, Currency::ofDouble(100));
  EXPECT_EQ((Currency::ofText(u"0.3") - Currency::ofText(u"0.1")).toText(), "0.2");
  EXPECT_TRUE((sum - sum).isZero());
}

TEST(Currency, WhatDoesNotFitIsAnOverflowAndNeverAWrongAmount)
{
  EXPECT_EQ(Currency::ofDouble(922337203685477.0).toText(), "922337203685477");
  EXPECT_EQ(Largest.toText(), "922337203685477.5807");
  EXPECT_EQ(Smallest.toText(), "-922337203685477.5808");
  EXPECT_THROW(Currency::ofDouble(922337203685478.0), RunTimeError);
  EXPECT_THROW(Currency::ofDouble(std::numeric_limits<double>::infinity()), RunTimeError);
  EXPECT_THROW(Currency::ofText(u"1e30"), RunTimeError);
  EXPECT_THROW(Largest + Currency::ofTenThousandths(1), RunTimeError);
  EXPECT_THROW(Smallest - Currency::ofTenThousandths(1), RunTimeError);
  EXPECT_THROW(-Smallest, RunTimeError);
}

TEST(NumberText, NumericPrefixIsTheLongestNumberAtTheStart)
{
  const Decimal rows[] = {{12.5, "12.5|  12.5  "},
                          {-3, "-3"},
                          {3, "+3"},
                          {0.5, ".5"},
                          {-0.5, "-.5"},
                          {5, "5."},
                          {1.2, "1.2.3"},
                          {100, "100元"},
                          {1, "1,234|1e|1e+"},
                          {1000, "1e3"},
                          {0.01, "1E-2x"},
                          {0, "--5|+-5|-|.|e5|abc||nan|inf|0x10|１２|1e999"},
                          {9007199254740992.0, "9007199254740993"}};
  for (const auto& [value, texts] : rows)
    for (const QString& text : QString(texts).split('|'))
      EXPECT_EQ(NumberText::numericPrefix(text), value) << shown(text);
  EXPECT_EQ(NumberText::numericPrefix(QString(10000, '9')), 0);
}

TEST(NumberText, IsNumericTakesTheWholeText)
{
  for (const char* text : {"1", " -1.50 ", ".5", "1e3"})
    EXPECT_TRUE(NumberText::isNumeric(QString(text))) << text;
  for (const char* text : {"", " ", "-", ".", "1 2", "1元", "abc", "1。5"})
    EXPECT_FALSE(NumberText::isNumeric(QString(text))) << text;
}

TEST(NumberText, NumbersAsText)
{
  // With a leading space and no zero before the point.
  const Decimal plain[] = {
      {0, " 0"},           {-0.0, " 0"}, {0.5, " .5"}, {-0.5, "-.5"}, {10.05, " 10.05"}, {0.1 + 0.2, " .3"}, {1e15, " 1000000000000000"},
      {0.00001, " .00001"}};
  for (const auto& [value, text] : plain)
    EXPECT_EQ(NumberText::plain(value), text);
  // In SQL, never with an exponent.
  const Decimal inSql[] = {{0.5, "0.5"},
                           {-0.0, "0"},
                           {1.5e20, "150000000000000000000"},
                           {-1.5e-7, "-0.00000015"},
                           {123456789.123456789, "123456789.123457"},
                           {std::numeric_limits<double>::infinity(), "0"}};
  for (const auto& [value, text] : inSql)
    EXPECT_EQ(NumberText::ofDouble(value), text);
  // Single precision shows seven digits.
  const Decimal ofSingle[] = {{6.7F, "6.7"}, {0.1F, "0.1"}, {16777217.0F, "16777220"}};
  for (const auto& [value, text] : ofSingle)
    EXPECT_EQ(NumberText::ofSingle(float(value)), text);
}

TEST(NumberText, FixedRoundsHalfAwayFromZeroAsItReads)
{
  const std::tuple<double, int, const char*> rows[] = {{1.005, 2, "1.01"},
                                                       {2.675, 2, "2.68"},
                                                       {-1.005, 2, "-1.01"},
                                                       {1.00499999, 2, "1.00"},
                                                       {0.5, 0, "1"},
                                                       {-0.001, 2, "0.00"},
                                                       {999999.999, 2, "1,000,000.00"},
                                                       {-1234567.891, 2, "-1,234,567.89"},
                                                       {12.5, 6, "12.500000"},
                                                       {1e15, 2, "1,000,000,000,000,000.00"}};
  for (const auto& [value, decimals, text] : rows)
    EXPECT_EQ(NumberText::fixedOfDecimal(NumberText::ofDouble(value), decimals, true), text);
  EXPECT_EQ(NumberText::fixedOfDecimal("1234.5", 2, false), "1234.50");
}
