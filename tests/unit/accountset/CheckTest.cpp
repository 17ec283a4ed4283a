#include "accountset/Check.h"

#include "accountset/AccountSet.h"
#include "accountset/Copy.h"
#include "support/Printing.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// Every way in which the sample firm can be brought out of order, with a word of what is then said.
struct Disorder {
  const char* sql;
  const char* said;
};

constexpr Disorder Disorders[] = {
    {"update TabPayfundBill set SumMoney=SumMoney+0.01 where Code=(select max(Code) from TabPayfundBill)",
     "TabPayfundBill: 单据金额与明细合计不符"},
    {"update TabFeeInf set State='作废' where Code=(select min(Code) from TabFeeInf)", "TabFee: 单据状态与明细状态不符"},
    {"delete from TabSustainInf where Code=(select min(Code) from TabSustain)", "TabSustain: 单据没有明细"},
    {"insert into TabElseIncomeInf(LineNo,Code,Moneyy) values(1,'QSD0',5)", "TabElseIncome: 明细没有单据"},
    {"update TabWarrantInf set Debtor=Debtor+1 where BillCode=(select min(Code) from TabWarrant) and LineNum=1", "凭证借贷不平"},
    {"update TabWarrant set SumLender=0 where Code=(select max(Code) from TabWarrant)", "凭证合计与分录不符"},
    {"insert into TabWarrantInf(LineNum,BillCode) values(1,'PZD0')", "分录没有凭证"},
    {"insert into TabWarrant(Code,JXCBillCode) values('PZD9','FKD999')", "凭证的单据已不存在"},
    {"insert into TabSFKHeXiao(InOutBillCode,SFKBillCode,HXMoney) values('XSD000',(select min(Code) from TabGathefundBill),1)",
     "核销记录的业务单据已不存在"},
    {"insert into TabSFKHeXiao(InOutBillCode,SFKBillCode,HXMoney) values((select min(Code) from TabOutBill),'SKD000',0)",
     "核销记录的收付款单已不存在"},
    {"update TabInBill set HXMoney=HXMoney-0.01 where Code=(select min(Code) from TabInBill)", "TabInBill: 已核销金额与核销记录合计不符"},
};

QString said(const Place& place)
{
  QString reason;
  QStringList all;
  for (const Check::Finding& finding : Check::run(place, reason))
    all.append(finding.what + u": "_s + finding.rows.join(u", "_s));
  return reason.isEmpty() ? all.join(u'\n') : reason;
}

} // namespace

TEST(Check, TheSampleFirmAddsUpAndEveryDisorderIsNamedOnBothEngines)
{
  const QTemporaryDir folder;
  const Place file{folder.filePath(u"set.mdb"_s), {}};
  ASSERT_EQ(AccountSet::create(file.file, AccountSet::Content::Demo), u""_s);
  EXPECT_EQ(said(file), u""_s);
  const auto store = Store::open(file).store;
  for (const auto& [sql, expected] : Disorders) {
    ASSERT_FALSE(store->run(QString::fromUtf8(sql)).error) << sql;
    EXPECT_TRUE(said(file).contains(QString::fromUtf8(expected))) << expected;
  }
  if (!TestServer::administrator())
    return;
  const TestServer::Database server(u"check_test"_s);
  ASSERT_EQ(Copy::rows(*store, *Store::open(server.administrator).store), u""_s);
  EXPECT_EQ(said(server.clerk), said(file));
}

TEST(Check, WhatIsNoAccountSetIsSaidSo)
{
  EXPECT_NE(said({u"/dev/null"_s, {}}), u""_s);
}
