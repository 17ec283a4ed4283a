#include "vouchers/Voucher.h"

#include "support/Printing.h"
#include "vouchers/VoucherDecision.h"
#include "vouchers/VoucherFixture.h"

#include <gtest/gtest.h>

using namespace Vouchers;

namespace {

struct VoucherTest : testing::Test, VoucherFixture {
  QString header(const QString& columns) { return file.rows(QString("select %1 from TabWarrant order by rowid").arg(columns)); }
  // Number, membership and affix of each book; then the type and its word.
  QString books()
  {
    return header("WarrantNum1||AccountBook1||AffixNum1||' '||WarrantNum2||AccountBook2||AffixNum2||' '||"
                  "WarrantNum3||AccountBook3||AffixNum3||' '||Type||' '||ZD");
  }
  QString report() { return file.rows("select Report from TabPayfundBill"); }
  void settle(const QString& values) { file.run(QString("insert or replace into TabJXCAccount values('付款单',%1)").arg(values)); }
  void generate(VoucherBill& bill) { GenerateVoucher(session, bill); }
};

} // namespace

TEST_F(VoucherTest, TheBooksAndTheTypeFollowTheSettingsOrTheMainBook)
{
  file.run("insert into TabWarrantTypeSet values('付款凭证','付'),('转账凭证',' ')");
  const struct {
    const char* mainBooks;
    const char* settings;
    const char* first;
    const char* second; // after the voucher was written again
  } rows[] = {
      {"", "", "111 000 000 记账凭证 记", "111 000 000 记账凭证 记"},
      {"(1,0),(2,1)", "", "001 110 000 记账凭证 记", "001 110 000 记账凭证 记"}, // the affix is that of the first book all the same
      {"(3,1)", "", "001 000 110 记账凭证 记", "001 000 110 记账凭证 记"},
      {"(4,1)", "", "111 000 000 记账凭证 记", "111 000 000 记账凭证 记"},
      {"", "1,1,0,1,'付款凭证'", "111 000 111 付款凭证 付", "111 000 111 付款凭证 付"},
      {"", "1,0,1,0,'转账凭证'", "001 111 000 转账凭证 记", "000 111 000 转账凭证 记"}, // the affix follows its book
      {"", "2,0,0,0,'没有'", "001 000 000 没有 记", "000 000 000 没有 记"},
      {"", "null,2,null,1,' '", "021 000 111 记账凭证 记", "020 000 111 记账凭证 记"},
  };
  for (const auto& row : rows) {
    file.run("delete from TabWarrant; delete from TabWarrantInf; delete from TabAccountantNameSet");
    if (*row.mainBooks)
      file.run(QString("insert into TabAccountantNameSet values") + row.mainBooks);
    if (*row.settings)
      settle(row.settings);
    generate(payment);
    EXPECT_EQ(books(), row.first) << row.mainBooks << row.settings;
    generate(payment);
    EXPECT_EQ(books(), row.second) << row.mainBooks << row.settings;
  }
}

TEST_F(VoucherTest, OfABillOfNothingTheSettingsAreNotAsked)
{
  settle("0,1,0,0,''");
  EXPECT_EQ(DecideVoucher(session, payment), VoucherDecision::NotWanted);
  payment.isTotalZero = true;
  EXPECT_EQ(DecideVoucher(session, payment), VoucherDecision::Wanted);
}

TEST_F(VoucherTest, NothingIsWrittenForNothingButTheMark)
{
  generate(payment);
  file.run("update TabPayfundBill set Report='',SumMoney=0");
  generate(payment);
  EXPECT_EQ(report(), "已生成会计凭证");
  file.run("update TabPayfundBill set Report='',SumMoney=7");
  settle("0,1,0,0,''");
  generate(payment);
  EXPECT_EQ(report(), "已生成会计凭证");
  EXPECT_EQ(header("SumDebtor"), "105") << "the voucher stays as it was";

  payment.code = "FKD2";
  generate(payment);
  EXPECT_EQ(desk.takeTexts(), "") << "a bill that is not there";
}

TEST_F(VoucherTest, AClosedPeriodStopsTheVoucherOfItsBills)
{
  const QString closed =
      "最后一次会计期末结转为 2022 年 11 月，本凭证录入日期有误！（不应小于最后一次结转会计期），将跳过自动生成会计凭证！";
  file.run(
      "insert into TabWriteAccountant values('2009','12','已结账'),('2022','9','已结账'),('2022','12','未审核'),('2022','11','已结账')");
  for (const auto& [date, isStopped] : {std::pair{"2022-11-30", true}, {"2022-12-01", false}, {"2021-12-31", true}, {"2023-1-1", false}}) {
    for (const bool isAccess : {true, false}) {
      session.params.IsAccessSQL = isAccess;
      file.run(QString("delete from TabWarrant; delete from TabWarrantInf; update TabPayfundBill set Report='',Datee='%1'").arg(date));
      generate(payment);
      EXPECT_EQ(desk.takeTexts(), isStopped ? closed : "");
      EXPECT_EQ(header("count(*)"), isStopped ? "0" : "1") << date;
      EXPECT_EQ(report(), isStopped ? "" : "已生成会计凭证");
    }
  }
}

// The guard and the voucher go by the accounting month, the number by the period of the calendar month.
TEST_F(VoucherTest, TheNumberIsCountedOverTheCalendarMonthsPeriod)
{
  file.run("insert into TabAccountAreaSet values(5,25),(6,5),(7,25)");
  file.run("insert into TabWarrant(Code,Datee,WarrantNum1,AccountBook1) "
           "values('a','2022-05-26',4,1),('b','2022-06-05',5,1),('c','2022-06-06',9,1)");
  generate(payment);
  EXPECT_EQ(file.rows("select DateeM,WarrantNum1 from TabWarrant where JXCBillCode='FKD1'"), "7|6");
  file.run("update TabWriteAccountant set State='已结账'");
  file.run("update TabPayfundBill set Report=''");
  generate(payment);
  EXPECT_TRUE(desk.takeTexts().contains("2022 年 7 月"));
  EXPECT_EQ(report(), "");
}
