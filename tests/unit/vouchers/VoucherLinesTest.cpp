#include "vouchers/VoucherLines.h"

#include "ledger/AccountingCalendar.h"
#include "session/ModuleADO.h"
#include "support/Printing.h"
#include "vouchers/VoucherFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace Vouchers;

namespace {

struct VoucherLinesTest : testing::Test, VoucherFixture {
  VoucherEntry entry{u"PZD1"_s, {7, 0, 9}, {1, 0, 1}, u"付"_s};

  void write(const VoucherBill& bill)
  {
    const QDate date(2022, 6, 8);
    const Recordset header = OpenRecordset(session, {u"select * from {} where Code='{}'", SqlName(bill.headerTable), bill.code});
    WriteVoucherLines(session, bill,
                      {bill.code, date, ModFuntion::GetAccountingYear(session, date), ModFuntion::GetAccountingMonth(session, date), {}},
                      header, entry);
  }
  // Number, account, name, debit, credit and partner of each line, in the order in which they were written.
  QString lines(const VoucherBill& bill)
  {
    write(bill);
    return file.rows(u"select LineNum,AccountantCode,AccountantName,Debtor,Lender,WLHS from TabWarrantInf order by rowid"_s)
        .replace(u'\n', u' ');
  }
};

} // namespace

TEST_F(VoucherLinesTest, EachKindHasItsSidesPartnersAndNumbers)
{
  struct Row {
    const char* what;
    VoucherBill bill;
    QString change;
    QString lines;
  };
  const auto set = [](const char* table, const char* values) {
    return u"update %1 set %2"_s.arg(QLatin1String(table), QLatin1String(values));
  };
  const Row rows[] = {
      {"payment: no line for 0 or for an account that the chart does not have",
       payment,
       {},
       u"1|2202|华联公司|105|0|K001 2|1001|现金|0|60| 3|100201|工行|0|-2.5|K001 4|1001|现金|0|60|"_s},
      {"receipt", receipt, {}, u"1|1122|华联公司|0|100| 2|100201|工行|100|0|K001"_s},
      {"bank", bank, {}, u"1|1001|现金|0|80| 2|100201|工行|80|0|"_s},
      {"bank out of an unknown account", bank, set("TabKeepTake", "AccountCodeC='9'"), u"1|100201|工行|80|0|"_s},
      {"expense", expense, {}, u"1|1001|现金|0|40| 2|100201|工行|0|50| 3|5601|费用|70|0| 4|5601|费用|20|0|"_s},
      {"expense by bank", expense, set("TabFee", "Cash=0"), u"1|100201|工行|0|50| 2|5601|费用|70|0| 3|5601|费用|20|0|"_s},
      {"expense in cash", expense, set("TabFee", "Cash=40,Credit=null"), u"1|1001|现金|0|40| 2|5601|费用|70|0| 3|5601|费用|20|0|"_s},
      {"income", income, {}, u"1|1001|现金|40|0| 2|100201|工行|50|0| 3|5601|费用|0|70| 4|5601|费用|0|20|"_s},
      {"income by bank", income, set("TabElseIncome", "Cash=0"), u"2|100201|工行|50|0| 3|5601|费用|0|70| 4|5601|费用|0|20|"_s},
      {"income of nothing", income, set("TabElseIncome", "Credit=0"), u"3|5601|费用|0|70| 4|5601|费用|0|20|"_s},
      {"income in cash", income, set("TabElseIncome", "Cash=40"), u"1|1001|现金|40|0| 3|5601|费用|0|70| 4|5601|费用|0|20|"_s},
      {"supplier's offset", supplierOffset, {}, u"1|2202|华联公司|30|0|K001 2|5601|费用|0|30|"_s},
      {"customer's offset", customerOffset, {}, u"1|1122|华联公司|0|30| 2|5601|费用|30|0|"_s},
      {"offset of no type", customerOffset, set("TabSustain", "SustainType=''"), u"1|1122|华联公司|0|30| 2|5601|费用|30|0|"_s},
      {"offset that sums to nothing", customerOffset, set("TabSustain", "SumMoney=0"), u"2|5601|费用|30|0|"_s},
  };
  for (const Row& row : rows) {
    if (!row.change.isEmpty())
      file.run(row.change);
    EXPECT_EQ(lines(row.bill), row.lines) << row.what;
  }
  EXPECT_EQ(desk.takeTexts(), u""_s);
}

TEST_F(VoucherLinesTest, ALineRepeatsItsHeaderInEveryColumn)
{
  file.run(u"insert into TabAccountAreaSet values(6,5)"_s);
  write(payment);
  EXPECT_EQ(file.rows(u"select * from TabWarrantInf where LineNum in (1,3)"_s),
            u"1|2022-06-08|2022|7|PZD1|第FKD1号付款单|2202|华联公司|2202>应付账款|105|0|未审核|7|0|9|1|0|1|付|K001|||0|0||美元|6.5\n"
            "3|2022-06-08|2022|7|PZD1|第FKD1号付款单|100201|工行|银行存款_工行|0|-2.5|未审核|7|0|9|1|0|1|付|K001|||0|0||美元|6.5"_s);
}

TEST_F(VoucherLinesTest, TheMoneyIsThatOfTheScreenAndOfABankBillTheBase)
{
  const auto money = [this](const VoucherBill& bill) {
    write(bill);
    return file.rows(u"select distinct MoneyName,MoneyRate,Summary from TabWarrantInf"_s);
  };
  EXPECT_EQ(money(bank), u"人民币|1|第CQD1号银行存取单"_s);
  file.run(u"update TabMoneyType set Rate=1.1 where IsBWB='是'"_s);
  EXPECT_EQ(money(bank), u"人民币|1.1|第CQD1号银行存取单"_s) << "a single-precision rate shows no more digits than it has";
  expense.TxtMoneyName.clear();
  expense.TxtMoneyRate = u"6.5x"_s;
  EXPECT_EQ(money(expense), u"|6.5|第FYD1号费用开支单"_s);
  EXPECT_EQ(money(income), u"人民币|1|第QSD1号其他收入单"_s);
  EXPECT_EQ(money(supplierOffset), u"人民币|1|第DCD1号费用抵冲单"_s);
  EXPECT_EQ(money(receipt), u"人民币|1|第SKD1号收款单"_s);
}
