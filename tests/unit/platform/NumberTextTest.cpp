#include "platform/NumberText.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

#include <limits>

TEST(NumberText, NumericPrefixIsTheLongestNumberAtTheStart)
{
  struct Row {
    QStringView text;
    double value;
  };
  for (const auto& [text, value] : {
           Row{u"12.5", 12.5}, Row{u"  12.5  ", 12.5}, Row{u"-3", -3},
           Row{u"+3", 3},      Row{u".5", 0.5},        Row{u"-.5", -0.5},
           Row{u"5.", 5},      Row{u"1.2.3", 1.2},     Row{u"100元", 100},
           Row{u"1,234", 1},   Row{u"1e3", 1000},      Row{u"1E-2x", 0.01},
           Row{u"1e", 1},      Row{u"1e+", 1},         Row{u"--5", 0},
           Row{u"+-5", 0},     Row{u"-", 0},           Row{u".", 0},
           Row{u"e5", 0},      Row{u"abc", 0},         Row{u"", 0},
           Row{u"nan", 0},     Row{u"inf", 0},         Row{u"0x10", 0},
           Row{u"１２", 0},    Row{u"1e999", 0},       Row{u"9007199254740993", 9007199254740992.0},
       })
    EXPECT_EQ(NumberText::numericPrefix(text), value) << shown(text);
  EXPECT_EQ(NumberText::numericPrefix(QString(10000, u'9')), 0);
}

TEST(NumberText, IsNumericTakesTheWholeText)
{
  for (const QStringView text : {u"1", u" -1.50 ", u".5", u"1e3"})
    EXPECT_TRUE(NumberText::isNumeric(text)) << shown(text);
  for (const QStringView text : {u"", u" ", u"-", u".", u"1 2", u"1元", u"abc", u"1。5"})
    EXPECT_FALSE(NumberText::isNumeric(text)) << shown(text);
}

TEST(NumberText, PlainTextHasALeadingBlankAndNoZeroAheadOfThePoint)
{
  struct Row {
    double value;
    QStringView text;
  };
  for (const auto& [value, text] : {
           Row{0, u" 0"},
           Row{-0.0, u" 0"},
           Row{0.5, u" .5"},
           Row{-0.5, u"-.5"},
           Row{10.05, u" 10.05"},
           Row{0.1 + 0.2, u" .3"},
           Row{1e15, u" 1000000000000000"},
           Row{0.00001, u" .00001"},
       })
    EXPECT_EQ(NumberText::plain(value), text);
}

TEST(NumberText, NumbersInSqlNeverHaveAnExponent)
{
  EXPECT_EQ(NumberText::ofDouble(0.5), u"0.5"_s);
  EXPECT_EQ(NumberText::ofDouble(-0.0), u"0"_s);
  EXPECT_EQ(NumberText::ofDouble(1.5e20), u"150000000000000000000"_s);
  EXPECT_EQ(NumberText::ofDouble(-1.5e-7), u"-0.00000015"_s);
  EXPECT_EQ(NumberText::ofDouble(123456789.123456789), u"123456789.123457"_s);
  EXPECT_EQ(NumberText::ofDouble(std::numeric_limits<double>::infinity()), u"0"_s);
}

TEST(NumberText, SinglePrecisionShowsSevenDigits)
{
  EXPECT_EQ(NumberText::ofSingle(6.7F), u"6.7"_s);
  EXPECT_EQ(NumberText::ofSingle(0.1F), u"0.1"_s);
  EXPECT_EQ(NumberText::ofSingle(16777217.0F), u"16777220"_s);
}

TEST(NumberText, FixedRoundsHalfAwayFromZeroAsItReads)
{
  struct Row {
    double value;
    int decimals;
    bool grouped;
    QStringView text;
  };
  for (const auto& [value, decimals, grouped, text] : {
           Row{1.005, 2, true, u"1.01"},
           Row{2.675, 2, true, u"2.68"},
           Row{-1.005, 2, true, u"-1.01"},
           Row{1.00499999, 2, true, u"1.00"},
           Row{0.5, 0, true, u"1"},
           Row{-0.001, 2, true, u"0.00"},
           Row{999999.999, 2, true, u"1,000,000.00"},
           Row{1234.5, 2, false, u"1234.50"},
           Row{-1234567.891, 2, true, u"-1,234,567.89"},
           Row{12.5, 6, true, u"12.500000"},
           Row{1e15, 2, true, u"1,000,000,000,000,000.00"},
       })
    EXPECT_EQ(NumberText::fixedOfDecimal(NumberText::ofDouble(value), decimals, grouped), text);
}
