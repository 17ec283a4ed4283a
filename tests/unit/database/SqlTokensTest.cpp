#include "database/SqlTokens.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SqlTokens, NothingButBlanksIsLeftOut)
{
  for (const QString& sql :
       {u""_s, u"select  top 1 * from [a b] where x='it''s' and d=#2022-6-8#  ;"_s, u"'open"_s, u"#open"_s, u"[open"_s, u"/* open"_s,
        u"-- comment\nselect 1"_s, u"a.b=.5e3+\"c\"\"d\""_s, u"单价型='金额型'"_s, u"'''"_s, u"''''"_s}) {
    qsizetype end = 0;
    for (const SqlToken& token : SqlTokens::read(sql)) {
      const qsizetype start = token.text.data() - sql.data();
      EXPECT_TRUE(QStringView(sql).sliced(end, start - end).trimmed().isEmpty()) << shown(sql);
      end = start + token.text.size();
    }
    EXPECT_TRUE(QStringView(sql).sliced(end).trimmed().isEmpty()) << shown(sql);
  }
}

TEST(SqlTokens, QuotesDatesAndBracketsAreWholeTokens)
{
  const auto tokens = SqlTokens::read(u"x='a''b'+#2022-6-8#+[c d]");
  ASSERT_EQ(tokens.size(), 7U);
  EXPECT_EQ(tokens[2].kind, SqlToken::Text);
  EXPECT_EQ(tokens[2].text.toString(), u"'a''b'"_s);
  EXPECT_EQ(tokens[4].kind, SqlToken::Date);
  EXPECT_EQ(tokens[6].kind, SqlToken::Word);
  EXPECT_FALSE(tokens[2].open);
  EXPECT_TRUE(SqlTokens::read(u"'''").back().open);
}
