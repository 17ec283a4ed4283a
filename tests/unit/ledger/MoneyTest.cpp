#include "ledger/Money.h"

#include "database/Value.h"
#include "ledger/ModDaXie.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace ModFuntion;

namespace {

struct MoneyTest : testing::Test, AccountSetFixture {
  // The capitals; `amount` becomes the plain text.
  QString capital(QString& amount, const QString& kind = "货币型") { return ModDaXie::CapitalAmountText(desk, amount, kind); }
  QString capitalOf(QString amount, const QString& kind = "货币型") { return capital(amount, kind); }
};

} // namespace

TEST_F(MoneyTest, ANumberIsShownByItsSetting)
{
  const struct {
    const char* text;
    int decimals;
    const char* formatted;
  } rows[] = {
      {"1234.5", 0, "1,235"},
      {"-1234.5", 2, "-1,234.50"},
      {"1234567.891", -1, "1,234,567.89"},
      {"1234.5", -2, " 1234.5"},
      {".5", -2, " .5"},
      {"1234.5", -3, "1234.50"},
      {".5", 2, "0.50"},
      {"1.005", 2, "1.01"},
      {"-0.001", 2, "0.00"},
      {"12。5", 2, "12.50"},
      {"￥1,234.5", 2, "1,234.50"},
      {"", 2, ""},
  };
  for (const auto& [text, decimals, formatted] : rows)
    EXPECT_EQ(FormatDotText(QString(text), decimals), formatted) << text << ' ' << decimals;
  EXPECT_EQ(FormatDotText(Value(), 2), "");
  EXPECT_EQ(FormatDotText(Value(std::int64_t(1234)), 2), "1,234.00");
  EXPECT_EQ(FormatDotText(Currency::ofTenThousandths(9223372036854775807), 4), "922,337,203,685,477.5807") << "no digit is lost";
}

TEST_F(MoneyTest, AShownNumberIsReadBack)
{
  EXPECT_EQ(StripMoneyText("￥1,234,567.80"), "1234567.80");
  EXPECT_EQ(StripMoneyText("12。5"), "125") << "not a point here";
  EXPECT_EQ(MoneyOf("￥1,234.5").toText(), "1234.5");
  EXPECT_EQ(MoneyOf(" 7x").toText(), "7");
}

TEST_F(MoneyTest, AnAmountIsSpelledInCapitals)
{
  const std::pair<const char*, const char*> rows[] = {
      {"0", "零元整"},
      {"10", "壹拾元整"},
      {"10000", "壹万元整"},
      {"1001", "壹仟零壹元整"},
      {"10010", "壹万零壹拾元整"},
      {"100001", "壹拾万零壹元整"},
      {"2003004", "贰佰万叁仟零肆元整"},
      {"120340056", "壹亿贰仟零叁拾肆万零伍拾陆元整"},
      {"0.5", "元伍角整"},
      {"0.05", "元零伍分"},
      {"12.34", "壹拾贰元叁角肆分"},
      {"12.345", "壹拾贰元叁角肆分"},
      {"-5", "负伍元整"},
      {"999999999999.99", "玖仟玖佰玖拾玖亿玖仟玖佰玖拾玖万玖仟玖佰玖拾玖元玖角玖分"},
      {"-1000000000000", "负元整"},
      {"abc", " "},
      {"", " "},
  };
  for (const auto& [amount, spelled] : rows)
    EXPECT_EQ(capitalOf(amount), spelled) << amount;
  EXPECT_EQ(desk.takeTexts(), "");
  EXPECT_EQ(capitalOf("1000000000000"), "");
  EXPECT_EQ(desk.takeTexts(), "数字太大，无法换算，请输入一万亿元以下的金额！");
}

TEST_F(MoneyTest, OtherKindsSpellTheWholePartAndTheAmountBecomesItsPlainText)
{
  EXPECT_EQ(capitalOf("1001", "数字型"), "壹仟零壹");
  EXPECT_EQ(capitalOf("12.5", "数字型"), "壹拾贰元伍");
  EXPECT_EQ(capitalOf("12.34", "数字型"), "壹拾贰元");
  for (const auto& [given, left] : {std::pair{"-12.50", "12.5"}, {" 0.5 ", ".5"}, {"abc", "abc"}}) {
    QString amount = given;
    capital(amount);
    EXPECT_EQ(amount, left);
  }
}
