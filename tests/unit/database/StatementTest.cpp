#include "database/Statement.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// A value stays the one token of its place, or it is reported.
struct Row {
  const char* what;
  QString value;
  bool isWhole;
};

} // namespace

TEST(StatementTest, AValueStaysTheOneTokenOfItsPlace)
{
  const Row texts[] = {
      {"plain", u"清泉"_s, true},
      {"empty", u""_s, true},
      {"signs that are text alone", u"100% #2022-01-01# -- /* ; \\ \" {} %1 $$"_s, true},
      {"doubled quotes", u"it''s"_s, true},
      {"nothing but doubled quotes", u"''"_s, true},
      {"an apostrophe", u"王'"_s, false},
      {"three of them", u"'''"_s, false},
      {"more values", u"m','付款','正常"_s, false},
      {"a comment after it", u"x'--"_s, false},
      {"a condition", u"' or '1'='1"_s, false},
      {"a sub-select", u"'||(select Name from TabClient)||'"_s, false},
      {"another statement", u"'; delete from TabClient; select '"_s, false},
  };
  for (const Row& row : texts) {
    EXPECT_EQ(Statement(u"select * from T where Name='{}'", row.value).violation().has_value(), !row.isWhole) << row.what;
    const Statement twice(u"select * from T where Name like '%{}%' or Code like '{}%'", row.value, row.value);
    EXPECT_EQ(twice.violation().has_value(), !row.isWhole) << row.what;
  }
  const Row dates[] = {{"a day", u"2022-06-08"_s, true}, {"any text", u"x' or '1"_s, true}, {"its end", u"2022-06-08# or #1"_s, false}};
  for (const Row& row : dates)
    EXPECT_EQ(Statement(u"Datee>=#{}#", row.value).violation().has_value(), !row.isWhole) << row.what;
  const Row numbers[] = {
      {"with a sign", u"-12.5"_s, true}, {"a leading point", u".5"_s, true}, {"empty", u""_s, false},
      {"a word", u"null"_s, false},      {"a sum", u"1+1"_s, false},         {"two signs", u"--1"_s, false},
      {"a blank", u"1 "_s, false},       {"another value", u"1,2"_s, false}, {"an exponent", u"1e5"_s, false},
      {"a call", u"abs(-1)"_s, false},
  };
  for (const Row& row : numbers)
    EXPECT_EQ(Statement(u"insert into T values({})", SqlNumber(row.value)).violation().has_value(), !row.isWhole) << row.what;
  const Row names[] = {{"a table", u"TabFee"_s, true},        {"in brackets", u"[Tab Fee]"_s, true},
                       {"two", u"TabFee,TabClient"_s, false}, {"an open bracket", u"[TabFee"_s, false},
                       {"a number", u"1"_s, false},           {"empty", u""_s, false},
                       {"a text", u"'x'"_s, false},           {"another statement", u"T;--"_s, false}};
  for (const Row& row : names)
    EXPECT_EQ(Statement(u"select * from {} where Code='1'", SqlName(row.value)).violation().has_value(), !row.isWhole) << row.what;
}

// Two values that close each other's quotes: each is read in its own place.
TEST(StatementTest, ValuesCannotHelpEachOther)
{
  const Statement moved(u"insert into T values('{}','{}','{}')", u"a'"_s, u","_s, u",'b"_s);
  EXPECT_EQ(moved.sql(), u"insert into T values('a'',',',','b')"_s);
  EXPECT_EQ(moved.violation().value_or(QString()), u"'a''"_s);
}

TEST(StatementTest, PartsKeepTheirPlacesAndAValueIsNeverFilled)
{
  const Statement condition(u"Name='{}'", u"{}%1"_s);
  Statement whole(u"select {} from {} where {}", Statement(u"Code,Name"), SqlName("TabClient"), condition);
  whole += Statement(u" and Num={}", SqlNumber(7));
  EXPECT_EQ(whole.sql(), u"select Code,Name from TabClient where Name='{}%1' and Num=7"_s);
  EXPECT_FALSE(whole.violation());
  const Statement broken = Statement::joined({condition, {u"Code='{}'", u"x'"_s}, sqlNumber(SqlNumber(1))}, u" or ");
  EXPECT_EQ(broken.sql(), u"Name='{}%1' or Code='x'' or 1"_s);
  EXPECT_EQ(broken.violation().value_or(QString()), u"'x''"_s);
}
