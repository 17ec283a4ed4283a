#include "vouchers/VoucherDecision.h"

#include "session/ModReadWriteParameters.h"
#include "support/Printing.h"
#include "vouchers/ShowVoucher.h"
#include "vouchers/VoucherFixture.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::StringLiterals;
using namespace Vouchers;

namespace {

struct VoucherDecisionTest : testing::Test, VoucherFixture {
  // What comes of a save of the bill: "wanted", "not wanted", or the refusal.
  QString decide(const VoucherBill& bill)
  {
    const VoucherDecision decision = DecideVoucher(session, bill);
    const QString texts = desk.takeTexts();
    if (decision == VoucherDecision::Refused)
      return texts;
    EXPECT_EQ(texts, u""_s);
    return decision == VoucherDecision::Wanted ? u"wanted"_s : u"not wanted"_s;
  }
  void settle(const QString& isWarrant)
  {
    file.run(u"insert or replace into TabJXCAccount(JXCTabName,IsWarrant) values('付款单',%1)"_s.arg(isWarrant));
  }

  // What the accounting program was started with; "none" if it was not.
  QString started()
  {
    if (machine.started.isEmpty())
      return u"none"_s;
    SessionParams params;
    EXPECT_TRUE(ModReadWriteParameters::ReadSystemParameters(machine, params));
    return machine.started.takeLast().section(u'/', -1) + u' ' + params.OperationsDirective + u' ' + params.OperationsDirective2;
  }
  void install(const QString& program) { QFile(folder.filePath(program)).open(QIODevice::WriteOnly); }
};

} // namespace

TEST_F(VoucherDecisionTest, FollowsTheSettingsOfItsKind)
{
  EXPECT_EQ(decide(payment), u"wanted"_s) << "a kind without settings";
  settle(u"0"_s);
  EXPECT_EQ(decide(payment), u"not wanted"_s);
  payment.isTotalZero = true;
  EXPECT_EQ(decide(payment), u"wanted"_s) << "the settings of a bill of nothing are not asked";
  payment.isTotalZero = false;
  settle(u"2"_s);
  EXPECT_EQ(decide(payment), u"wanted"_s);
  settle(u"null"_s);
  EXPECT_EQ(decide(payment), u"wanted"_s) << "not 0";
}

TEST_F(VoucherDecisionTest, RefusesAPartnerWithoutTheAccount)
{
  struct Row {
    VoucherBill& bill;
    QString refusal;
  };
  const Row rows[] = {
      {payment, u"付款时，必须设置本供应商的应付账款科目，但您在往来单位信息录入中并没有设置本供应商的应付账款科目，"
                "请先到往来单位信息录入中设置好本供应商的应付账款科目编号再保存本单据！"_s},
      {receipt, u"收款时，必须设置本客户的应收账款科目，但您在往来单位信息录入中并没有设置本客户的应收账款科目，"
                "请先到往来单位信息录入中设置好本客户的应收账款科目编号再保存本单据！"_s},
      {supplierOffset,
       u"供应商费用抵冲时，在会计账务中必须生成抵冲本供应商的应付账款，但您在往来单位信息录入中并没有设置本供应商的应付账款科目，"
       "请先到往来单位信息录入中设置好本供应商的应付账款科目编号再保存本单据！"_s},
      {customerOffset, u"客户费用抵冲时，在会计账务中必须生成抵冲本客户的应收账款，但您在往来单位信息录入中并没有设置本客户的应收账款科目，"
                       "请先到往来单位信息录入中设置好本客户的应收账款科目编号再保存本单据！"_s},
      {bank, u"wanted"_s},
      {expense, u"wanted"_s},
      {income, u"wanted"_s},
  };
  for (const auto& [bill, refusal] : rows) {
    EXPECT_EQ(decide(bill), u"wanted"_s) << shown(bill.JXCTabName);
    for (const QString& partner : {u"K002"_s, u"K009"_s, u""_s}) {
      bill.TxtCode = partner;
      EXPECT_EQ(decide(bill), refusal) << shown(bill.JXCTabName + partner);
    }
  }
  customerOffset.JXCTabName = u"费用抵冲"_s;
  EXPECT_EQ(decide(customerOffset), u"wanted"_s) << "neither of the two modes";
  settle(u"0"_s);
  EXPECT_EQ(decide(payment), u"not wanted"_s) << "who needs no voucher needs no account";
}

TEST_F(VoucherDecisionTest, RefusesABillWhoseVoucherIsPosted)
{
  file.run(u"insert into TabWarrant(Code,JXCBillCode,State) values('PZD1','FKD1',' 已登账 '),('PZD2','SKD1','已审核')"_s);
  EXPECT_EQ(decide(payment), u"当前单据对应的会计凭证已登账，禁止修改！如果确需修改，请先操作反登账，之后再修改本单据！"_s);
  EXPECT_EQ(decide(receipt), u"wanted"_s);
  settle(u"0"_s);
  EXPECT_EQ(decide(payment), u"not wanted"_s) << "a kind without vouchers is not asked for one";
  settle(u"1"_s);
  session.params.IsJXC = true;
  payment.TxtCode = u"K002"_s;
  EXPECT_EQ(decide(payment), u"not wanted"_s) << "finance kept apart: nothing is asked";
}

TEST_F(VoucherDecisionTest, TheVoucherIsShownByTheAccountingProgram)
{
  install(u"GOSTEN.exe"_s);
  ShowVoucher(session, u"  "_s);
  EXPECT_EQ(desk.takeTexts(), u"单据编号不存在，不能查看凭证！"_s);
  ShowVoucher(session, u"FKD1"_s);
  EXPECT_EQ(desk.takeTexts(), u"本单据没有对应的凭证！"_s);
  file.run(u"insert into TabWarrant(Code,JXCBillCode) values('PZD1','FKD1')"_s);
  session.params.IsJXC = true;
  ShowVoucher(session, u"FKD1"_s);
  EXPECT_EQ(desk.takeTexts(), u"本账套是进销存与财务分离账套，不允许查看凭证！"_s);
  EXPECT_EQ(started(), u"none"_s);
  session.params.IsJXC = false;
  ShowVoucher(session, u" FKD1 "_s);
  EXPECT_EQ(started(), u"GOSTEN.exe 查看会计凭证 PZD1"_s);
}

TEST_F(VoucherDecisionTest, TheMenusAskForTheirRight)
{
  install(u"GOSTEN.exe"_s);
  install(u"MIRVAL.exe"_s);
  file.run(u"insert into TabWarrant(Code,JXCBillCode) values('PZD1','FKD1')"_s);
  session.params.UserName = u"王五"_s;
  FSeeWarrent_Click(session, u"FKD1"_s);
  FJXCAccount_Click(session, u"付款单"_s);
  EXPECT_EQ(desk.takeTexts(), u"没有操作权限！\n没有操作权限！"_s);
  file.run(u"insert into TabOperateRight(UserName,FunctionName,AllowRead,AllowEdit) values"
           "('王五','凭证录入',1,0),('王五','自动生成会计凭证对应科目设置',0,1)"_s);
  FSeeWarrent_Click(session, u"FKD1"_s);
  EXPECT_EQ(started(), u"GOSTEN.exe 查看会计凭证 PZD1"_s);
  FJXCAccount_Click(session, u" 付款单 "_s);
  EXPECT_EQ(started(), u"MIRVAL.exe 自动生成会计凭证对应科目设置 付款单"_s);
}
