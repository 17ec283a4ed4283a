#include "ledger/Money.h"

#include "database/Value.h"
#include "ledger/ModDaXie.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace ModFuntion;

namespace {

struct MoneyTest : testing::Test, AccountSetFixture {
  // The capitals; `amount` becomes the plain text.
  QString capital(QString& amount, const QString& kind = u"货币型"_s) { return ModDaXie::CapitalAmountText(desk, amount, kind); }
  QString capitalOf(QString amount, const QString& kind = u"货币型"_s) { return capital(amount, kind); }
};

} // namespace

TEST_F(MoneyTest, ANumberIsShownByItsSetting)
{
  struct Row {
    QString text;
    int decimals;
    QString shownText;
  };
  for (const auto& [text, decimals, shownText] : {
           Row{u"1234.5"_s, 0, u"1,235"_s},
           Row{u"-1234.5"_s, 2, u"-1,234.50"_s},
           Row{u"1234567.891"_s, -1, u"1,234,567.89"_s},
           Row{u"1234.5"_s, -2, u" 1234.5"_s},
           Row{u".5"_s, -2, u" .5"_s},
           Row{u"1234.5"_s, -3, u"1234.50"_s},
           Row{u".5"_s, 2, u"0.50"_s},
           Row{u"1.005"_s, 2, u"1.01"_s},
           Row{u"-0.001"_s, 2, u"0.00"_s},
           Row{u"12。5"_s, 2, u"12.50"_s},
           Row{u"￥1,234.5"_s, 2, u"1,234.50"_s},
           Row{u""_s, 2, u""_s},
       })
    EXPECT_EQ(FormatDotText(text, decimals), shownText) << shown(text) << ' ' << decimals;
  EXPECT_EQ(FormatDotText(Value(), 2), u""_s);
  EXPECT_EQ(FormatDotText(Value(std::int64_t(1234)), 2), u"1,234.00"_s);
  EXPECT_EQ(FormatDotText(Currency::ofTenThousandths(9223372036854775807), 4), u"922,337,203,685,477.5807"_s) << "no digit is lost";
}

TEST_F(MoneyTest, AShownNumberIsReadBack)
{
  EXPECT_EQ(StripMoneyText(u"￥1,234,567.80"_s), u"1234567.80"_s);
  EXPECT_EQ(StripMoneyText(u"12。5"_s), u"125"_s) << "here it is no point";
  EXPECT_EQ(MoneyOf(u"￥1,234.5"_s).toText(), u"1234.5"_s);
  EXPECT_EQ(MoneyOf(u" 7x"_s).toText(), u"7"_s);
}

TEST_F(MoneyTest, AnAmountIsSpelledInCapitals)
{
  struct Row {
    QString amount, capital;
  };
  for (const auto& [amount, spelled] : {
           Row{u"0"_s, u"零元整"_s},
           Row{u"10"_s, u"壹拾元整"_s},
           Row{u"10000"_s, u"壹万元整"_s},
           Row{u"1001"_s, u"壹仟零壹元整"_s},
           Row{u"10010"_s, u"壹万零壹拾元整"_s},
           Row{u"100001"_s, u"壹拾万零壹元整"_s},
           Row{u"2003004"_s, u"贰佰万叁仟零肆元整"_s},
           Row{u"120340056"_s, u"壹亿贰仟零叁拾肆万零伍拾陆元整"_s},
           Row{u"0.5"_s, u"元伍角整"_s},
           Row{u"0.05"_s, u"元零伍分"_s},
           Row{u"12.34"_s, u"壹拾贰元叁角肆分"_s},
           Row{u"12.345"_s, u"壹拾贰元叁角肆分"_s},
           Row{u"-5"_s, u"负伍元整"_s},
           Row{u"999999999999.99"_s, u"玖仟玖佰玖拾玖亿玖仟玖佰玖拾玖万玖仟玖佰玖拾玖元玖角玖分"_s},
           Row{u"-1000000000000"_s, u"负元整"_s},
           Row{u"abc"_s, u" "_s},
           Row{u""_s, u" "_s},
       })
    EXPECT_EQ(capitalOf(amount), spelled) << shown(amount);
  EXPECT_EQ(desk.takeTexts(), u""_s);
  EXPECT_EQ(capitalOf(u"1000000000000"_s), u""_s);
  EXPECT_EQ(desk.takeTexts(), u"数字太大，无法换算，请输入一万亿元以下的金额！"_s);
}

TEST_F(MoneyTest, OtherKindsSpellTheWholePart)
{
  EXPECT_EQ(capitalOf(u"1001"_s, u"数字型"_s), u"壹仟零壹"_s);
  EXPECT_EQ(capitalOf(u"12.5"_s, u"数字型"_s), u"壹拾贰元伍"_s);
  EXPECT_EQ(capitalOf(u"12.34"_s, u"数字型"_s), u"壹拾贰元"_s);
}

TEST_F(MoneyTest, TheAmountBecomesItsPlainText)
{
  for (const auto& [given, left] : {std::pair{u"-12.50"_s, u"12.5"_s}, {u" 0.5 "_s, u".5"_s}, {u"abc"_s, u"abc"_s}}) {
    QString amount = given;
    capital(amount);
    EXPECT_EQ(amount, left);
  }
}
