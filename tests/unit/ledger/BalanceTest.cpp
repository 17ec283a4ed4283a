#include "ledger/Balance.h"

#include "database/DialectTranslator.h"
#include "ledger/BalanceStatement.h"
#include "ledger/BillFilter.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace ModFuntion;

namespace {

// A partner K001 whose four accounts are kept by partners, on a day without closings before it.
struct BalanceTest : testing::Test, AccountSetFixture {
  BalanceTest()
  {
    file.run("insert into TabAccountantType(Code,ParentCode,Name,WLHS) values"
             "('1122','1','应收账款',1),('2203','2','预收账款',1),('2202','2','应付账款',1),('1123','1','预付账款',1)");
    file.run("insert into TabClient(Code,Name,YingShouCode,YuShouCode,YingFuCode,YuFuCode) values"
             "('K001','华联','1122','2203','2202','1123'),('K002','银座','1122','2203','2202','1123')");
  }

  // Both dialects must agree.
  QString balance(const QString& moneyName = "人民币", const QDate& date = QDate(2022, 6, 8), bool auditedOnly = false)
  {
    QStringList texts;
    for (const bool isAccess : {true, false}) {
      session.params.IsAccessSQL = isAccess;
      texts.append(GetOutstandingBalance(session, "K001", date, moneyName, auditedOnly).toText());
    }
    EXPECT_EQ(desk.takeTexts(), "");
    EXPECT_EQ(texts[0], texts[1]);
    return texts[0];
  }

  void insert(const char* table, const char* columns, const QString& values)
  {
    file.run(QString("insert into %1(%2) values(%3)").arg(table, columns, QString(values).replace('@', QString::number(m_code))));
  }
  void goodsBill(const char* table, const QString& values)
  {
    ++m_code;
    insert(table, "Code,UnitCode,Datee,State,MoneyName,MoneyRate,Auditing,SumMoney,AllDiscount,Cash,Credit", "'B@'," + values);
  }
  void sale(const QString& amount, const QString& date = "2022-06-01", const QString& money = "人民币", const QString& rate = "1")
  {
    goodsBill("TabOutBill", QString("'K001','%1','正常','%2',%3,'',%4,0,0,0").arg(date, money, rate, amount));
  }
  // A line of a receipt or payment.
  void fundLine(const char* table, const QString& values)
  {
    ++m_code;
    insert(table, "BillCode,LineNo,MoneyName,MoneyRate,UnitCode,Datee,State,Auditing,AccountantCode,Moneyy", "'F@',1,'人民币',1," + values);
  }
  void offset(const QString& type, const QString& lineValues)
  {
    ++m_code;
    insert("TabSustain", "Code,SustainType", "'D@','" + type + "'");
    insert("TabSustainInf", "Code,LineNo,MoneyName,MoneyRate,UnitCode,Datee,State,Auditing,Moneyy", "'D@',1,'人民币',1," + lineValues);
  }
  // Of the header the bill it comes from and the first two books, of the line the account, its sides and its partner.
  void voucher(const QString& header, const QString& line, const QString& auditor = "")
  {
    ++m_code;
    insert("TabWarrant", "Code,Datee,Auditing,JXCBillCode,AccountBook1,AccountBook2", "'P@','2022-06-01','" + auditor + "'," + header);
    insert("TabWarrantInf", "BillCode,LineNum,MoneyName,MoneyRate,AccountantCode,Debtor,Lender,WLHS", "'P@',1,'人民币',1," + line);
  }

private:
  int m_code = 0;
};

} // namespace

TEST_F(BalanceTest, EachMovementHasItsSign)
{
  const QString amounts = "'K001','2022-06-01','正常','人民币',1,'',100,10,20,30";
  const QString line = "'K001','2022-06-01','正常','','%1',50";
  struct Row {
    const char* what;
    std::function<void()> add;
    QString balance;
  };
  const Row rows[] = {
      {"nothing", [] {}, "0"},
      {"sale", [&] { goodsBill("TabOutBill", amounts); }, "40"},
      {"sale returned", [&] { goodsBill("TabOutCancleBill", amounts); }, "-40"},
      {"purchase", [&] { goodsBill("TabInBill", amounts); }, "-40"},
      {"purchase returned", [&] { goodsBill("TabInCancleBill", amounts); }, "40"},
      {"receipt in cash", [&] { fundLine("TabGathefundBillInf", line.arg("100101")); }, "-50"},
      {"receipt by bank", [&] { fundLine("TabGathefundBillInf", line.arg("1002")); }, "-50"},
      {"receipt on another account", [&] { fundLine("TabGathefundBillInf", line.arg("1122")); }, "0"},
      {"payment in cash", [&] { fundLine("TabPayfundBillInf", line.arg("1001")); }, "50"},
      {"payment by bank", [&] { fundLine("TabPayfundBillInf", line.arg("100203")); }, "50"},
      {"customer's offset", [&] { offset("客户", "'K001','2022-06-01','正常','',50"); }, "-50"},
      {"supplier's offset", [&] { offset("供应商", "'K001','2022-06-01','正常','',50"); }, "50"},
      {"voucher on 应收", [&] { voucher("'',1,0", "'1122',70,20,'K001'"); }, "50"},
      {"voucher on 预收", [&] { voucher("null,1,0", "'2203',0,50,'K001'"); }, "-50"},
      {"voucher on 应付", [&] { voucher("'',1,0", "'2202',20,70,'K001'"); }, "-50"},
      {"voucher on 预付", [&] { voucher("null,1,0", "'1123',50,0,'K001'"); }, "50"},

      {"voided sale", [&] { goodsBill("TabOutBill", QString(amounts).replace("正常", "作废")); }, "0"},
      {"voided receipt", [&] { fundLine("TabGathefundBillInf", line.arg("1001").replace("正常", "作废")); }, "0"},
      {"voided offset", [&] { offset("客户", "'K001','2022-06-01','作废','',50"); }, "0"},
      {"another's sale", [&] { goodsBill("TabOutBill", QString(amounts).replace("K001", "K002")); }, "0"},
      {"voucher of a bill", [&] { voucher("'SKD202206010001',1,0", "'1122',0,50,'K001'"); }, "0"},
      {"voucher on another account", [&] { voucher("'',1,0", "'1002',50,0,'K001'"); }, "0"},
  };
  for (const Row& row : rows) {
    row.add();
    EXPECT_EQ(balance(), row.balance) << row.what;
    for (const char* table : {"TabOutBill", "TabOutCancleBill", "TabInBill", "TabInCancleBill", "TabGathefundBillInf", "TabPayfundBillInf",
                              "TabSustain", "TabSustainInf", "TabWarrant", "TabWarrantInf"})
      file.run(QString("delete from ") + table);
  }
}

TEST_F(BalanceTest, BeginsWithTheLastClosing)
{
  file.run("insert into TabClientTurn(Code,Datee,Num,SumMoney,MoneyRate,MoneyName) values"
           "('K001',null,1,7,1,'人民币'),('K001','2022-3-31',2,500,1,'人民币'),('K001','2022-04-30',3,900,1,'人民币')");
  sale("1", "1900-01-01");
  sale("10", "2022-03-31");
  sale("100", "2022-4-1");
  sale("1000", "2022-06-08");
  sale("10000", "2022-06-09");
  EXPECT_EQ(balance(), "1117") << "without a closing all but the first day, on top of the opening";

  file.run("insert into TabTurn values('2022-03-31'),(null)");
  EXPECT_EQ(balance(), "1600") << "the day of the closing is in the closing balance";
  EXPECT_EQ(balance("人民币", QDate(2022, 3, 31)), "500");

  file.run("insert into TabTurn values('2022-04-30')");
  EXPECT_EQ(balance(), "1900");
  EXPECT_EQ(balance("人民币", QDate(2022, 4, 29)), "600") << "a later closing counts for nothing";

  file.run("insert into TabTurn values('2022-05-31')");
  EXPECT_EQ(balance(), "1000") << "a closing at which the partner had no balance";
}

TEST_F(BalanceTest, CountsOneCurrencyOrAllByTheirRates)
{
  file.run("insert into TabClientTurn(Code,Num,SumMoney,MoneyRate,MoneyName) values('K001',1,10,6.5,'美元'),('K001',1,3,1,'人民币')");
  sale("100");
  sale("20", "2022-06-01", "美元", "6.5");
  EXPECT_EQ(balance(), "103");
  EXPECT_EQ(balance("美元"), "30");
  EXPECT_EQ(balance("日元"), "0");
  EXPECT_EQ(balance(""), "130") << "no currency: the amounts unconverted, and the first opening";
  EXPECT_EQ(balance("综合本位币"), "295") << "the first opening, not the sum of both";

  offset("客户", "'K001','2022-06-01','正常','',50");
  voucher("'',1,0", "'1122',70,20,'K001'");
  fundLine("TabPayfundBillInf", "'K001','2022-06-01','正常','','1001',5");
  for (const char* table : {"TabSustainInf", "TabWarrantInf", "TabPayfundBillInf"})
    file.run(QString("update %1 set MoneyName='美元',MoneyRate=2").arg(table));
  EXPECT_EQ(balance(), "103");
  EXPECT_EQ(balance("美元"), "35");
  EXPECT_EQ(balance("综合本位币"), "305");
}

TEST_F(BalanceTest, LeavesOutUnauditedBillsOnRequest)
{
  const QDate date(2022, 6, 8);
  for (const QString auditor : {"", "王"}) {
    const QString base = "'K001','2022-06-01','正常'";
    goodsBill("TabOutBill", base + QString(",'人民币',1,'%1',1000,0,0,0").arg(auditor));
    fundLine("TabGathefundBillInf", base + QString(",'%1','1001',100").arg(auditor));
    offset("客户", base + QString(",'%1',10").arg(auditor));
    voucher("'',1,0", "'1122',1,0,'K001'", auditor);
  }
  EXPECT_EQ(balance("人民币", date, false), "1782");
  EXPECT_EQ(balance("人民币", date, true), "891");
}

TEST_F(BalanceTest, TakesVouchersByTheAccountsOfThePartner)
{
  voucher("'',1,0", "'1122',50,0,'K001'");
  voucher("'',0,1", "'1122',7,0,'K001'");
  voucher("'',1,0", "'1122',300,0,'K002'");
  EXPECT_EQ(balance(), "50");

  file.run("update TabAccountantType set WLHS=0 where Code='1122'");
  EXPECT_EQ(balance(), "350") << "an account kept without partners counts whole";
  file.run("insert into TabAccountantNameSet values(1,0),(2,1)");
  EXPECT_EQ(balance(), "7") << "the main book";

  session.params.IsJXC = true;
  EXPECT_EQ(balance(), "0") << "finance kept apart";
  session.params.IsJXC = false;
  EXPECT_TRUE(GetOutstandingBalance(session, "", QDate(2022, 6, 8), {}, false).isZero());
}

// The tables of a firm grow for years; no part of the statement may scan one.
TEST_F(BalanceTest, IsAnsweredByIndexes)
{
  const MovementQuery query{"K001", QDate(2022, 3, 31), QDate(2022, 6, 8), "人民币", true, "1"};
  for (const char* keptByPartners : {"1", "0"}) {
    file.run(QString("update TabAccountantType set WLHS=") + keptByPartners);
    const QString sql = DialectTranslator::forEmbedded(movementStatement(session, query).sql())->sql;
    const QString plan = file.rows(QString("explain query plan ") + sql);
    EXPECT_TRUE(plan.contains("TabOutBill USING INDEX TabOutBill_UnitCode_Datee (UnitCode=? AND Datee>? AND Datee<?)"));
    EXPECT_FALSE(plan.contains("SCAN Tab")) << shown(plan);
  }
}

TEST(BillFilterTest, AddsAClauseForEachGivenValue)
{
  const auto clauses = [](const BillFilter& filter) { return BuildBillFilter(filter).sql(); };
  EXPECT_EQ(clauses({}), "");
  EXPECT_EQ(clauses({.table = "T", .moneyName = "综合本位币"}), "");
  EXPECT_EQ(clauses({.auditedOnly = true, .moneyName = "美元"}), "  and  Auditing <> ''   and  MoneyName = '美元' ");
  EXPECT_EQ(clauses({.table = "T", .auditedOnly = true}), "  and  T.Auditing <> '' ");
}
