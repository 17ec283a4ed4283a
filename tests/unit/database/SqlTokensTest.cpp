#include "database/SqlTokens.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SqlTokens, JoinedTheyGiveTheStatementBack)
{
  for (const QString& sql : {u""_s, u"select  top 1 * from [a b] where x='it''s' and d=#2022-6-8#  ;"_s, u"'open"_s, u"#open"_s, u"[open"_s,
                             u"/* open"_s, u"-- comment\nselect 1"_s, u"a.b=.5e3+\"c\"\"d\""_s, u"单价型='金额型'"_s, u"'''"_s, u"''''"_s})
    EXPECT_EQ(SqlTokens::join(SqlTokens::read(sql)), sql);
}

TEST(SqlTokens, QuotesDatesAndBracketsAreWholeTokens)
{
  const auto tokens = SqlTokens::read(u"x='a''b'+#2022-6-8#+[c d]"_s);
  ASSERT_EQ(tokens.size(), 7U);
  EXPECT_EQ(tokens[2].kind, SqlToken::Text);
  EXPECT_EQ(tokens[2].text, u"'a''b'"_s);
  EXPECT_EQ(tokens[4].kind, SqlToken::Date);
  EXPECT_EQ(tokens[6].kind, SqlToken::Word);
  EXPECT_FALSE(tokens[2].open);
  EXPECT_TRUE(SqlTokens::read(u"'''"_s).back().open);
}
