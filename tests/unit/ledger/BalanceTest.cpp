#include "ledger/Balance.h"

#include "database/DialectTranslator.h"
#include "ledger/BalanceStatement.h"
#include "ledger/BillFilter.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace ModFuntion;

namespace {

// A partner K001 whose four accounts are kept by partners, on a day without closings before it.
struct BalanceTest : testing::Test, AccountSetFixture {
  BalanceTest()
  {
    file.run(u"insert into TabAccountantType(Code,ParentCode,Name,WLHS) values"
             "('1122','1','应收账款',1),('2203','2','预收账款',1),('2202','2','应付账款',1),('1123','1','预付账款',1)"_s);
    file.run(u"insert into TabClient(Code,Name,YingShouCode,YuShouCode,YingFuCode,YuFuCode) values"
             "('K001','华联','1122','2203','2202','1123'),('K002','银座','1122','2203','2202','1123')"_s);
  }

  Currency balance(const QString& moneyName = u"人民币"_s, const QDate& date = QDate(2022, 6, 8), bool auditedOnly = false)
  {
    return GetOutstandingBalance(session, u"K001"_s, date, moneyName, auditedOnly);
  }
  // Both dialects must agree.
  QString figures(const QString& moneyName = u"人民币"_s, const QDate& date = QDate(2022, 6, 8), bool auditedOnly = false)
  {
    QStringList texts;
    for (const bool isAccess : {true, false}) {
      session.params.IsAccessSQL = isAccess;
      texts.append(balance(moneyName, date, auditedOnly).toText());
    }
    EXPECT_EQ(desk.takeTexts(), u""_s);
    EXPECT_EQ(texts[0], texts[1]);
    return texts[0];
  }

  void goodsBill(const QString& table, const QString& values)
  {
    ++m_code;
    file.run(u"insert into %1(Code,UnitCode,Datee,State,MoneyName,MoneyRate,Auditing,SumMoney,AllDiscount,Cash,Credit) values('B%2',%3)"_s
                 .arg(table)
                 .arg(m_code)
                 .arg(values));
  }
  void sale(const QString& amount, const QString& date = u"2022-06-01"_s, const QString& money = u"人民币"_s, const QString& rate = u"1"_s)
  {
    goodsBill(u"TabOutBill"_s, u"'K001','%1','正常','%2',%3,'',%4,0,0,0"_s.arg(date, money, rate, amount));
  }
  // A line of a receipt or payment.
  void fundLine(const QString& table, const QString& values)
  {
    ++m_code;
    file.run(u"insert into %1(BillCode,LineNo,MoneyName,MoneyRate,UnitCode,Datee,State,Auditing,AccountantCode,Moneyy) "
             "values('F%2',1,'人民币',1,%3)"_s.arg(table)
                 .arg(m_code)
                 .arg(values));
  }
  void offset(const QString& type, const QString& lineValues)
  {
    ++m_code;
    file.run(u"insert into TabSustain(Code,SustainType) values('D%1','%2')"_s.arg(m_code).arg(type));
    file.run(
        u"insert into TabSustainInf(Code,LineNo,MoneyName,MoneyRate,UnitCode,Datee,State,Auditing,Moneyy) values('D%1',1,'人民币',1,%2)"_s
            .arg(m_code)
            .arg(lineValues));
  }
  // Of the header the bill it comes from and the first book, of the line the account, its sides and its partner.
  void voucher(const QString& header, const QString& line, const QString& auditor = u""_s)
  {
    ++m_code;
    file.run(u"insert into TabWarrant(Code,Datee,Auditing,JXCBillCode,AccountBook1,AccountBook2) values('P%1','2022-06-01','%2',%3)"_s
                 .arg(m_code)
                 .arg(auditor, header));
    file.run(
        u"insert into TabWarrantInf(BillCode,LineNum,MoneyName,MoneyRate,AccountantCode,Debtor,Lender,WLHS) values('P%1',1,'人民币',1,%2)"_s
            .arg(m_code)
            .arg(line));
  }

private:
  int m_code = 0;
};

} // namespace

TEST_F(BalanceTest, EachMovementGoesToItsSums)
{
  const QString amounts = u"'K001','2022-06-01','正常','人民币',1,'',100,10,20,30"_s;
  const QString line = u"'K001','2022-06-01','正常','','%1',50"_s;
  struct Row {
    const char* what;
    std::function<void()> add;
    QString figures;
  };
  const Row rows[] = {
      {"nothing", [] {}, u"0"_s},
      {"sale", [&] { goodsBill(u"TabOutBill"_s, amounts); }, u"40"_s},
      {"sale returned", [&] { goodsBill(u"TabOutCancleBill"_s, amounts); }, u"-40"_s},
      {"purchase", [&] { goodsBill(u"TabInBill"_s, amounts); }, u"-40"_s},
      {"purchase returned", [&] { goodsBill(u"TabInCancleBill"_s, amounts); }, u"40"_s},
      {"receipt in cash", [&] { fundLine(u"TabGathefundBillInf"_s, line.arg(u"100101"_s)); }, u"-50"_s},
      {"receipt by bank", [&] { fundLine(u"TabGathefundBillInf"_s, line.arg(u"1002"_s)); }, u"-50"_s},
      {"receipt on another account", [&] { fundLine(u"TabGathefundBillInf"_s, line.arg(u"1122"_s)); }, u"0"_s},
      {"payment in cash", [&] { fundLine(u"TabPayfundBillInf"_s, line.arg(u"1001"_s)); }, u"50"_s},
      {"payment by bank", [&] { fundLine(u"TabPayfundBillInf"_s, line.arg(u"100203"_s)); }, u"50"_s},
      {"customer's offset", [&] { offset(u"客户"_s, u"'K001','2022-06-01','正常','',50"_s); }, u"-50"_s},
      {"supplier's offset", [&] { offset(u"供应商"_s, u"'K001','2022-06-01','正常','',50"_s); }, u"50"_s},
      {"voucher on 应收", [&] { voucher(u"'',1,0"_s, u"'1122',70,20,'K001'"_s); }, u"50"_s},
      {"voucher on 预收", [&] { voucher(u"null,1,0"_s, u"'2203',0,50,'K001'"_s); }, u"-50"_s},
      {"voucher on 应付", [&] { voucher(u"'',1,0"_s, u"'2202',20,70,'K001'"_s); }, u"-50"_s},
      {"voucher on 预付", [&] { voucher(u"null,1,0"_s, u"'1123',50,0,'K001'"_s); }, u"50"_s},

      {"voided sale", [&] { goodsBill(u"TabOutBill"_s, QString(amounts).replace(u"正常"_s, u"作废"_s)); }, u"0"_s},
      {"voided receipt", [&] { fundLine(u"TabGathefundBillInf"_s, line.arg(u"1001"_s).replace(u"正常"_s, u"作废"_s)); }, u"0"_s},
      {"voided offset", [&] { offset(u"客户"_s, u"'K001','2022-06-01','作废','',50"_s); }, u"0"_s},
      {"another's sale", [&] { goodsBill(u"TabOutBill"_s, QString(amounts).replace(u"K001"_s, u"K002"_s)); }, u"0"_s},
      {"voucher of a bill", [&] { voucher(u"'SKD202206010001',1,0"_s, u"'1122',0,50,'K001'"_s); }, u"0"_s},
      {"voucher on another account", [&] { voucher(u"'',1,0"_s, u"'1002',50,0,'K001'"_s); }, u"0"_s},
  };
  for (const Row& row : rows) {
    row.add();
    EXPECT_EQ(figures(), row.figures) << row.what;
    for (const char* table : {"TabOutBill", "TabOutCancleBill", "TabInBill", "TabInCancleBill", "TabGathefundBillInf", "TabPayfundBillInf",
                              "TabSustain", "TabSustainInf", "TabWarrant", "TabWarrantInf"})
      file.run(u"delete from "_s + QLatin1String(table));
  }
}

TEST_F(BalanceTest, BeginsWithTheLastClosing)
{
  file.run(u"insert into TabClientTurn(Code,Datee,Num,SumMoney,MoneyRate,MoneyName) values"
           "('K001',null,1,7,1,'人民币'),('K001','2022-3-31',2,500,1,'人民币'),('K001','2022-04-30',3,900,1,'人民币')"_s);
  sale(u"1"_s, u"1900-01-01"_s);
  sale(u"10"_s, u"2022-03-31"_s);
  sale(u"100"_s, u"2022-4-1"_s);
  sale(u"1000"_s, u"2022-06-08"_s);
  sale(u"10000"_s, u"2022-06-09"_s);
  EXPECT_EQ(balance().toText(), u"1117"_s) << "without a closing all but the first day, on top of the opening";

  file.run(u"insert into TabTurn values('2022-03-31'),(null)"_s);
  EXPECT_EQ(balance().toText(), u"1600"_s) << "the day of the closing is in the closed figure";
  EXPECT_EQ(figures(u"人民币"_s, QDate(2022, 3, 31)), u"500"_s);

  file.run(u"insert into TabTurn values('2022-04-30')"_s);
  EXPECT_EQ(balance().toText(), u"1900"_s);
  EXPECT_EQ(figures(u"人民币"_s, QDate(2022, 4, 29)), u"600"_s) << "a later closing counts for nothing";

  file.run(u"insert into TabTurn values('2022-05-31')"_s);
  EXPECT_EQ(balance().toText(), u"1000"_s) << "a closing at which the partner had no balance";
}

TEST_F(BalanceTest, CountsOneCurrencyOrAllByTheirRates)
{
  file.run(u"insert into TabClientTurn(Code,Num,SumMoney,MoneyRate,MoneyName) values('K001',1,10,6.5,'美元'),('K001',1,3,1,'人民币')"_s);
  sale(u"100"_s);
  sale(u"20"_s, u"2022-06-01"_s, u"美元"_s, u"6.5"_s);
  EXPECT_EQ(figures(), u"103"_s);
  EXPECT_EQ(figures(u"美元"_s), u"30"_s);
  EXPECT_EQ(figures(u"日元"_s), u"0"_s);
  EXPECT_EQ(figures(u""_s), u"130"_s) << "no currency: the amounts as they stand, and the first opening";
  EXPECT_EQ(figures(u"综合本位币"_s), u"295"_s) << "the first opening, not the sum of both";

  offset(u"客户"_s, u"'K001','2022-06-01','正常','',50"_s);
  voucher(u"'',"
          u"1,0"_s,
          u"'1122',70,20,'K001'"_s);
  fundLine(u"TabPayfundBillInf"_s, u"'K001','2022-06-01','正常','','1001',5"_s);
  for (const char* table : {"TabSustainInf", "TabWarrantInf", "TabPayfundBillInf"})
    file.run(u"update %1 set MoneyName='美元',MoneyRate=2"_s.arg(QLatin1String(table)));
  EXPECT_EQ(figures(), u"103"_s);
  EXPECT_EQ(figures(u"美元"_s), u"35"_s);
  EXPECT_EQ(figures(u"综合本位币"_s), u"305"_s);
}

TEST_F(BalanceTest, LeavesOutWhatNobodyAuditedIfToldTo)
{
  const QDate date(2022, 6, 8);
  for (const QString& auditor : {u""_s, u"王"_s}) {
    const QString base = u"'K001','2022-06-01','正常'"_s;
    goodsBill(u"TabOutBill"_s, base + u",'人民币',1,'%1',1000,0,0,0"_s.arg(auditor));
    fundLine(u"TabGathefundBillInf"_s, base + u",'%1','1001',100"_s.arg(auditor));
    offset(u"客户"_s, base + u",'%1',10"_s.arg(auditor));
    voucher(u"'',1,0"_s, u"'1122',1,0,'K001'"_s, auditor);
  }
  EXPECT_EQ(figures(u"人民币"_s, date, false), u"1782"_s);
  EXPECT_EQ(figures(u"人民币"_s, date, true), u"891"_s);
}

TEST_F(BalanceTest, TakesVouchersByTheAccountsOfThePartner)
{
  voucher(u"'',1,0"_s, u"'1122',50,0,'K001'"_s);
  voucher(u"'',0,1"_s, u"'1122',7,0,'K001'"_s);
  voucher(u"'',1,0"_s, u"'1122',300,0,'K002'"_s);
  EXPECT_EQ(figures(), u"50"_s);

  file.run(u"update TabAccountantType set WLHS=0 where Code='1122'"_s);
  EXPECT_EQ(figures(), u"350"_s) << "an account kept without partners counts whole";
  file.run(u"insert into TabAccountantNameSet values(1,0),(2,1)"_s);
  EXPECT_EQ(figures(), u"7"_s) << "the main book";

  session.params.IsJXC = true;
  EXPECT_EQ(figures(), u"0"_s) << "finance kept apart";
  session.params.IsJXC = false;
  EXPECT_TRUE(GetOutstandingBalance(session, u""_s, QDate(2022, 6, 8), {}, false).isZero());
}

// The tables of a firm grow for years; nothing of the statement may read one from end to end.
TEST_F(BalanceTest, IsAnsweredByIndexes)
{
  const MovementQuery query{u"K001"_s, QDate(2022, 3, 31), QDate(2022, 6, 8), u"人民币"_s, true, u"1"_s};
  for (const char* keptByPartners : {"1", "0"}) {
    file.run(u"update TabAccountantType set WLHS="_s + QLatin1String(keptByPartners));
    const QString sql = DialectTranslator::forEmbedded(movementStatement(session, query).sql())->sql;
    const QString plan = file.rows(u"explain query plan "_s + sql);
    EXPECT_TRUE(plan.contains(u"TabOutBill USING INDEX TabOutBill_UnitCode_Datee (UnitCode=? AND Datee>? AND Datee<?)"_s));
    EXPECT_FALSE(plan.contains(u"SCAN Tab"_s)) << shown(plan);
  }
}

TEST(BillFilterTest, AddsAClauseForEachGivenValue)
{
  const auto clauses = [](const BillFilter& filter) { return BuildBillFilter(filter).sql(); };
  EXPECT_EQ(clauses({}), u""_s);
  EXPECT_EQ(clauses({.table = u"T"_s, .moneyName = u"综合本位币"_s}), u""_s);
  EXPECT_EQ(clauses({.auditedOnly = true, .moneyName = u"美元"_s}), u"  and  Auditing <> ''   and  MoneyName = '美元' "_s);
  EXPECT_EQ(clauses({.table = u"T"_s, .auditedOnly = true}), u"  and  T.Auditing <> '' "_s);
}
