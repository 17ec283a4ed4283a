#include "vouchers/Voucher.h"

#include "support/Printing.h"
#include "vouchers/VoucherDecision.h"
#include "vouchers/VoucherFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace Vouchers;

namespace {

struct VoucherTest : testing::Test, VoucherFixture {
  QString header(const QString& columns) { return file.rows(u"select %1 from TabWarrant order by rowid"_s.arg(columns)); }
  // Number, membership and affix of each book; then the type and its word.
  QString books()
  {
    return header(u"WarrantNum1||AccountBook1||AffixNum1||' '||WarrantNum2||AccountBook2||AffixNum2||' '||"
                  "WarrantNum3||AccountBook3||AffixNum3||' '||Type||' '||ZD"_s);
  }
  QString report() { return file.rows(u"select Report from TabPayfundBill"_s); }
  void settle(const QString& values) { file.run(u"insert or replace into TabJXCAccount values('付款单',%1)"_s.arg(values)); }
  void generate(VoucherBill& bill) { GenerateVoucher(session, bill); }
};

} // namespace

TEST_F(VoucherTest, TheBooksOfAKindWithoutSettingsAreTheMainOne)
{
  for (const auto& [mainBooks, expected] : {
           std::pair{u""_s, u"111 000 000 记账凭证 记"_s},
           {u"(1,0),(2,1)"_s, u"001 110 000 记账凭证 记"_s}, // the affix is that of the first book all the same
           {u"(3,1)"_s, u"001 000 110 记账凭证 记"_s},
           {u"(4,1)"_s, u"111 000 000 记账凭证 记"_s},
       }) {
    file.run(u"delete from TabWarrant; delete from TabWarrantInf; delete from TabAccountantNameSet"_s);
    if (!mainBooks.isEmpty())
      file.run(u"insert into TabAccountantNameSet values"_s + mainBooks);
    generate(payment);
    EXPECT_EQ(books(), expected) << shown(mainBooks);
    generate(payment);
    EXPECT_EQ(books(), expected) << "again: " << shown(mainBooks);
  }
}

TEST_F(VoucherTest, TheBooksAndTheTypeFollowTheSettings)
{
  file.run(u"insert into TabWarrantTypeSet values('付款凭证','付'),('转账凭证',' ')"_s);
  struct Row {
    QString settings, first, second;
  };
  for (const auto& [settings, first, second] : {
           Row{u"1,1,0,1,'付款凭证'"_s, u"111 000 111 付款凭证 付"_s, u"111 000 111 付款凭证 付"_s},
           Row{u"1,0,1,0,'转账凭证'"_s, u"001 111 000 转账凭证 记"_s,
               u"000 111 000 转账凭证 记"_s}, // rewritten, the affix follows its book
           Row{u"2,0,0,0,'没有'"_s, u"001 000 000 没有 记"_s, u"000 000 000 没有 记"_s},
           Row{u"null,2,null,1,' '"_s, u"021 000 111 记账凭证 记"_s, u"020 000 111 记账凭证 记"_s},
       }) {
    file.run(u"delete from TabWarrant; delete from TabWarrantInf"_s);
    settle(settings);
    generate(payment);
    EXPECT_EQ(books(), first) << shown(settings);
    generate(payment);
    EXPECT_EQ(books(), second) << "again: " << shown(settings);
  }
}

TEST_F(VoucherTest, OfABillOfNothingTheSettingsAreNotAsked)
{
  settle(u"0,1,0,0,''"_s);
  EXPECT_EQ(DecideVoucher(session, payment), VoucherDecision::NotWanted);
  payment.isTotalZero = true;
  EXPECT_EQ(DecideVoucher(session, payment), VoucherDecision::Wanted);
}

TEST_F(VoucherTest, NothingIsWrittenForNothingButTheMark)
{
  generate(payment);
  file.run(u"update TabPayfundBill set Report='',SumMoney=0"_s);
  generate(payment);
  EXPECT_EQ(report(), u"已生成会计凭证"_s);
  file.run(u"update TabPayfundBill set Report='',SumMoney=7"_s);
  settle(u"0,1,0,0,''"_s);
  generate(payment);
  EXPECT_EQ(report(), u"已生成会计凭证"_s);
  EXPECT_EQ(header(u"SumDebtor"_s), u"105"_s) << "the voucher stays as it was";

  payment.code = u"FKD2"_s;
  generate(payment);
  EXPECT_EQ(desk.takeTexts(), u""_s) << "a bill that is not there";
}

TEST_F(VoucherTest, AClosedPeriodStopsTheVoucherOfItsBills)
{
  const QString years = u"insert into TabWriteAccountant values('2009','12','已结账'),('2022','9','已结账'),('2022','12','未审核')"_s;
  file.run(years + u",('2022','11','已结账')"_s);
  struct Row {
    QString date;
    bool isStopped;
  };
  for (const auto& [date, isStopped] :
       {Row{u"2022-11-30"_s, true}, Row{u"2022-12-01"_s, false}, Row{u"2021-12-31"_s, true}, Row{u"2023-1-1"_s, false}}) {
    for (const bool isAccess : {true, false}) {
      session.params.IsAccessSQL = isAccess;
      file.run(u"delete from TabWarrant; delete from TabWarrantInf; update TabPayfundBill set Report='',Datee='%1'"_s.arg(date));
      generate(payment);
      EXPECT_EQ(
          desk.takeTexts(),
          isStopped
              ? u"最后一次会计期末结转为 2022 年 11 月，本凭证录入日期有误！（不应小于最后一次结转会计期），将跳过自动生成会计凭证！"_s
              : u""_s);
      EXPECT_EQ(header(u"count(*)"_s), isStopped ? u"0"_s : u"1"_s) << shown(date);
      EXPECT_EQ(report(), isStopped ? u""_s : u"已生成会计凭证"_s);
    }
  }
}

// The guard and the voucher go by the accounting month, the number by the period of the calendar month.
TEST_F(VoucherTest, TheNumberIsCountedOverTheCalendarMonthsPeriod)
{
  file.run(u"insert into TabAccountAreaSet values(5,25),(6,5),(7,25)"_s);
  file.run(
      u"insert into TabWarrant(Code,Datee,WarrantNum1,AccountBook1) values('a','2022-05-26',4,1),('b','2022-06-05',5,1),('c','2022-06-06',9,1)"_s);
  generate(payment);
  EXPECT_EQ(file.rows(u"select DateeM,WarrantNum1 from TabWarrant where JXCBillCode='FKD1'"_s), u"7|6"_s);
  file.run(u"update TabWriteAccountant set State='已结账'"_s);
  file.run(u"update TabPayfundBill set Report=''"_s);
  generate(payment);
  EXPECT_TRUE(desk.takeTexts().contains(u"2022 年 7 月"_s));
  EXPECT_EQ(report(), u""_s);
}
