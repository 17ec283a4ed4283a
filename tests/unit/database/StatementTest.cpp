#include "database/Statement.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

namespace {

// Whether a value stays the one token of its place.
struct Row {
  const char* value;
  bool isWhole;
};

} // namespace

TEST(StatementTest, AValueStaysTheOneTokenOfItsPlace)
{
  const Row texts[] = {
      {"清泉", true},
      {"", true},
      {"100% #2022-01-01# -- /* ; \\ \" {} %1 $$", true},
      {"it''s", true},
      {"''", true},
      {"王'", false},
      {"'''", false},
      {"m','付款','正常", false},
      {"x'--", false},
      {"' or '1'='1", false},
      {"'||(select Name from TabClient)||'", false},
      {"'; delete from TabClient; select '", false},
  };
  const Row dates[] = {{"2022-06-08", true}, {"x' or '1", true}, {"2022-06-08# or #1", false}};
  const Row numbers[] = {{"-12.5", true}, {".5", true},  {"", false},    {"null", false}, {"1+1", false},
                         {"--1", false},  {"1 ", false}, {"1,2", false}, {"1e5", false},  {"abs(-1)", false}};
  const Row names[] = {{"TabFee", true}, {"[Tab Fee]", true}, {"TabFee,TabClient", false}, {"[TabFee", false}, {"1", false}, {"", false},
                       {"'x'", false},   {"T;--", false}};
  for (const auto& [text, isWhole] : texts) {
    const QString value = text;
    EXPECT_NE(Statement(u"select * from T where Name='{}'", value).violation().has_value(), isWhole) << text;
    EXPECT_NE(Statement(u"select * from T where Name like '%{}%' or Code like '{}%'", value, value).violation().has_value(), isWhole)
        << text;
  }
  for (const auto& [date, isWhole] : dates)
    EXPECT_NE(Statement(u"Datee>=#{}#", QString(date)).violation().has_value(), isWhole) << date;
  for (const auto& [number, isWhole] : numbers)
    EXPECT_NE(Statement(u"insert into T values({})", SqlNumber(QString(number))).violation().has_value(), isWhole) << number;
  for (const auto& [name, isWhole] : names)
    EXPECT_NE(Statement(u"select * from {} where Code='1'", SqlName(name)).violation().has_value(), isWhole) << name;
}

// Two values that close each other's quotes: each is read in its own place.
TEST(StatementTest, ValuesCannotHelpEachOther)
{
  const Statement moved(u"insert into T values('{}','{}','{}')", "a'", ",", ",'b");
  EXPECT_EQ(moved.sql(), "insert into T values('a'',',',','b')");
  EXPECT_EQ(moved.violation().value_or(QString()), "'a''");
}

TEST(StatementTest, PartsKeepTheirPlacesAndAValueIsNeverFilled)
{
  const Statement condition(u"Name='{}'", "{}%1");
  Statement whole(u"select {} from {} where {}", Statement(u"Code,Name"), SqlName("TabClient"), condition);
  whole += Statement(u" and Num={}", SqlNumber(7));
  EXPECT_EQ(whole.sql(), "select Code,Name from TabClient where Name='{}%1' and Num=7");
  EXPECT_FALSE(whole.violation());
  const Statement broken = Statement::joined({condition, {u"Code='{}'", "x'"}, sqlNumber(SqlNumber(1))}, u" or ");
  EXPECT_EQ(broken.sql(), "Name='{}%1' or Code='x'' or 1");
  EXPECT_EQ(broken.violation().value_or(QString()), "'x''");
}
