#include "accountset/Check.h"

#include "accountset/AccountSet.h"
#include "accountset/Copy.h"
#include "samplefirm/SampleFirm.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

// Every way in which the sample firm can be brought out of order, and words of what is then reported.
constexpr std::pair<const char*, const char*> Disorders[] = {
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
    {"update TabPayfundBill set Auditing='' where Code=(select min(Code) from TabPayfundBill)",
     "TabPayfundBill: 单据审核人与明细审核人不符"},
    {"update TabFeeInf set Datee='2022-06-30' where Code=(select max(Code) from TabFee)", "TabFee: 单据日期与明细日期不符"},
    {"update TabSustainInf set UnitCode='Z9' where Code=(select max(Code) from TabSustain)", "TabSustain: 单据单位与明细单位不符"},
    {"update TabWarrant set JXCBillCode='' where JXCBillCode=(select max(Code) from TabGathefundBill)",
     "收款单: 单据标明已生成会计凭证，但没有凭证"},
    {"insert into TabFee(Code,Datee,SumMoney,State,Report) values('FYD9','2022-06-08',5,'正常','')",
     "费用开支单: 单据没有凭证，也没有标明已生成会计凭证"},
    {"update TabKeepTake set Report='' where Code=(select max(Code) from TabKeepTake)", "银行存取款单: 单据有凭证，但没有标明"},
    {"update TabElseIncome set State='作废' where Code=(select max(Code) from TabElseIncome)", "其他收入单: 作废单据仍有凭证"},
    {"update TabKeepTake set SumMoney=SumMoney+0.01 where Code=(select min(Code) from TabKeepTake)",
     "银行存取款单: 凭证金额与单据金额不符"},
    {"update TabWarrantInf set Summary='第FKD1号付款单' where BillCode=(select min(Code) from TabWarrant where JXCBillCode like 'FKD%')",
     "付款单: 凭证分录属于另一张单据"},
    {"update TabWarrant set WarrantNum1=1 where Code=(select max(Code) from TabWarrant)", "账簿1 的凭证号重复"},
    {"update TabOutBill set Cash=SumMoney where Code=(select max(InOutBillCode) from TabSFKHeXiao where InOutBillCode like 'XSD2%')",
     "TabOutBill: 核销超过应核销金额"},
    {"update TabSFKHeXiao set HXMoney=HXMoney-0.01 where SFKBillCode=(select max(SFKBillCode) from TabSFKHeXiao where SFKBillCode like "
     "'FKD%')",
     "TabPayfundBill: 核销记录合计与收付款金额不符"},
};

// What the programs may leave in a sound account set.
constexpr const char* Sound[] = {
    // A day that another program has written in its own way.
    "update TabFeeInf set Datee=replace(Datee,'-','/')||' 9:30'",
    // A voided bill keeps its mark.
    "update TabPayfundBill set Report='已生成会计凭证' where State='作废'",
    // Vouchers of a kind were turned off; were never made; were not made because the period was closed.
    "update TabJXCAccount set IsWarrant=0 where JXCTabName='费用开支单';"
    "insert into TabFee(Code,SumMoney,State,Datee) values('FYD9',5,'正常','2022-06-08'); insert into TabFeeInf(Code,Moneyy,State,Datee) "
    "values('FYD9',5,'正常','2022-06-08')",
    "delete from TabWarrantInf where BillCode in (select Code from TabWarrant where JXCBillCode like 'QSD%');"
    "delete from TabWarrant where JXCBillCode like 'QSD%'; update TabElseIncome set Report=''",
    "insert or replace into TabWriteAccountant values('2022','6','已结账'); update TabKeepTake set Report=''",
    // A closing amid the month: the number is drawn over the period before.
    "insert into TabAccountAreaSet values(5,25); insert into TabWarrantInf(LineNum,BillCode) values(1,'PZD9');"
    "insert into TabWarrant(Code,Datee,DateeY,DateeM,AccountBook1,WarrantNum1) values('PZD9','2022-05-28','2022','6',1,1)",
    // What a write-off adds up has seven digits.
    "insert into TabOutBill(Code,SumMoney,HXMoney) values('XSD9',1234567.89,1234568);"
    "insert into TabSFKHeXiao(InOutBillCode,SFKBillCode,HXMoney) values('XSD9',(select min(Code) from TabSustain),1234567.89)",
};

// Half states of earlier versions, and what is left of them after a repair.
constexpr std::pair<const char*, const char*> HalfStates[] = {
    {"update TabPayfundBill set Auditing='' where Code=(select min(Code) from TabPayfundBill)", ""},
    {"update TabFee set State='作废' where Code=(select max(Code) from TabFee)", ""},
    // The voucher of a void goes with it, unless it is posted.
    {"update TabKeepTake set State='作废' where Code=(select max(Code) from TabKeepTake)", ""},
    {"update TabSustain set State='作废' where Code=(select min(Code) from TabSustain);"
     "update TabSustainInf set State='作废' where Code=(select min(Code) from TabSustain)",
     "作废单据仍有凭证"},
    {"delete from TabWarrant where JXCBillCode=(select Code from TabFee where Code=(select max(Code) from TabFee));"
     "update TabFee set Report='' where Code=(select max(Code) from TabFee)",
     "没有凭证，也没有标明"},
    {"update TabElseIncome set Report='' where Code=(select max(Code) from TabElseIncome)", ""},
    // The header of a bill that is not voided says nothing about its lines.
    {"update TabFeeInf set State='作废' where Code=(select min(Code) from TabFeeInf)", "单据状态与明细状态不符"},
    {"delete from TabPayfundBillInf where BillCode=(select max(Code) from TabPayfundBill)", "单据没有明细"},
};

QString findings(const AccountSetLocation& location)
{
  QStringList all;
  const auto checked =
      Check::run(location, [&all](const Check::Finding& finding) { all.append(finding.what + ": " + finding.rows.join(", ")); });
  return checked ? all.join(u'\n') : checked.error();
}

// The sample firm once more, with these statements run on it.
AccountSetLocation sampleAfter(const QTemporaryDir& folder, const char* statements)
{
  const AccountSetLocation file{folder.filePath("after.mdb"), {}};
  QFile::remove(file.file);
  EXPECT_TRUE(QFile::copy(folder.filePath("set.mdb"), file.file));
  RawDatabase(file.file).run(statements);
  return file;
}

} // namespace

TEST(Check, ASoundAccountSetAddsUpAndEveryDisorderIsNamedOnBothEngines)
{
  const QTemporaryDir folder;
  const AccountSetLocation file{folder.filePath("set.mdb"), {}};
  ASSERT_TRUE(AccountSet::create(file.file, SampleFirm::write));
  EXPECT_EQ(findings(file), "");
  for (const char* statements : Sound)
    EXPECT_EQ(findings(sampleAfter(folder, statements)), "") << statements;
  for (const auto& [sql, expected] : Disorders)
    EXPECT_TRUE(findings(sampleAfter(folder, sql)).contains(expected)) << expected;
  if (!TestServer::administrator())
    return;
  const auto store = *Store::open(file);
  for (const auto& [sql, expected] : Disorders)
    ASSERT_TRUE(store->run(sql)) << sql;
  const TestServer::Database server("check_test");
  ASSERT_TRUE(Copy::rows(*store, **Store::open(server.administrator)));
  EXPECT_EQ(findings(server.clerk), findings(file));
}

// What is left is reported with advice; all else is corrected, and not touched again.
void expectRepaired(const AccountSetLocation& location, const char* left)
{
  ASSERT_TRUE(*Check::isRepairable(location) || *left);
  const QString before = findings(location);
  int repaired = 0;
  ASSERT_TRUE(Check::repair(location, [&](const Check::Finding& finding) {
    repaired += int(finding.repaired.size());
    EXPECT_TRUE(finding.rows.isEmpty() || !finding.advice.isEmpty()) << finding.what.toStdString();
  }));
  const QString after = findings(location);
  EXPECT_EQ(repaired > 0, before != after);
  EXPECT_EQ(after.count(u'\n') + !after.isEmpty(), *left != 0) << after.toStdString();
  EXPECT_TRUE(after.contains(left)) << after.toStdString();
}

TEST(Check, HalfStatesWithOneRightAnswerAreRepairedOnBothEngines)
{
  const QTemporaryDir folder;
  const AccountSetLocation file{folder.filePath("set.mdb"), {}};
  ASSERT_TRUE(AccountSet::create(file.file, SampleFirm::write));
  ASSERT_FALSE(*Check::isRepairable(file));
  for (const auto& [sql, left] : HalfStates) {
    SCOPED_TRACE(sql);
    expectRepaired(sampleAfter(folder, sql), left);
  }
  if (!TestServer::administrator())
    return;
  const auto store = *Store::open(file);
  const TestServer::Database server("repair_test", SampleFirm::write);
  const auto onServer = *Store::open(server.administrator);
  for (const auto& [sql, left] : HalfStates)
    ASSERT_TRUE(onServer->run(sql) && store->runAll(QString(sql).split(u';'))) << sql;
  ASSERT_TRUE(Check::repair(file, [](const Check::Finding&) {}));
  ASSERT_TRUE(Check::repair(server.clerk, [](const Check::Finding&) {}));
  EXPECT_EQ(findings(server.clerk), findings(file));
}

TEST(Check, AFileThatIsNotAnAccountSetIsReported)
{
  EXPECT_NE(findings({"/dev/null", {}}), "");
}
