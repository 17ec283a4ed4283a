#include "vouchers/VoucherLines.h"

#include "ledger/AccountingCalendar.h"
#include "session/ModuleADO.h"
#include "support/Printing.h"
#include "vouchers/VoucherFixture.h"

#include <gtest/gtest.h>

using namespace Vouchers;

namespace {

struct VoucherLinesTest : testing::Test, VoucherFixture {
  VoucherEntry entry{"PZD1", {7, 0, 9}, {1, 0, 1}, "付"};

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
    return file.rows("select LineNum,AccountantCode,AccountantName,Debtor,Lender,WLHS from TabWarrantInf order by rowid")
        .replace(u'\n', u' ');
  }
};

} // namespace

TEST_F(VoucherLinesTest, EachKindHasItsSidesPartnersAndNumbers)
{
  struct Row {
    const char* what;
    VoucherBill bill;
    const char* change;
    const char* lines;
  };
  const Row rows[] = {
      {"payment: no line for 0 or for an account that the chart does not have", payment, "",
       "1|2202|华联公司|105|0|K001 2|1001|现金|0|60| 3|100201|工行|0|-2.5|K001 4|1001|现金|0|60|"},
      {"receipt", receipt, "", "1|1122|华联公司|0|100| 2|100201|工行|100|0|K001"},
      {"bank", bank, "", "1|1001|现金|0|80| 2|100201|工行|80|0|"},
      {"bank out of an unknown account", bank, "update TabKeepTake set AccountCodeC='9'", "1|100201|工行|80|0|"},
      {"expense", expense, "", "1|1001|现金|0|40| 2|100201|工行|0|50| 3|5601|费用|70|0| 4|5601|费用|20|0|"},
      {"expense by bank", expense, "update TabFee set Cash=0", "1|100201|工行|0|50| 2|5601|费用|70|0| 3|5601|费用|20|0|"},
      {"expense in cash", expense, "update TabFee set Cash=40,Credit=null", "1|1001|现金|0|40| 2|5601|费用|70|0| 3|5601|费用|20|0|"},
      {"income", income, "", "1|1001|现金|40|0| 2|100201|工行|50|0| 3|5601|费用|0|70| 4|5601|费用|0|20|"},
      {"income by bank", income, "update TabElseIncome set Cash=0", "2|100201|工行|50|0| 3|5601|费用|0|70| 4|5601|费用|0|20|"},
      {"income of nothing", income, "update TabElseIncome set Credit=0", "3|5601|费用|0|70| 4|5601|费用|0|20|"},
      {"income in cash", income, "update TabElseIncome set Cash=40", "1|1001|现金|40|0| 3|5601|费用|0|70| 4|5601|费用|0|20|"},
      {"supplier's offset", supplierOffset, "", "1|2202|华联公司|30|0|K001 2|5601|费用|0|30|"},
      {"customer's offset", customerOffset, "", "1|1122|华联公司|0|30| 2|5601|费用|30|0|"},
      {"offset of no type", customerOffset, "update TabSustain set SustainType=''", "1|1122|华联公司|0|30| 2|5601|费用|30|0|"},
      {"offset that sums to nothing", customerOffset, "update TabSustain set SumMoney=0", "2|5601|费用|30|0|"},
  };
  for (const Row& row : rows) {
    file.run(row.change);
    EXPECT_EQ(lines(row.bill), row.lines) << row.what;
  }
  EXPECT_EQ(desk.takeTexts(), "");
}

TEST_F(VoucherLinesTest, ALineRepeatsItsHeaderInEveryColumn)
{
  file.run("insert into TabAccountAreaSet values(6,5)");
  write(payment);
  EXPECT_EQ(file.rows("select * from TabWarrantInf where LineNum in (1,3)"),
            "1|2022-06-08|2022|7|PZD1|第FKD1号付款单|2202|华联公司|2202>应付账款|105|0|未审核|7|0|9|1|0|1|付|K001|||0|0||美元|6.5\n"
            "3|2022-06-08|2022|7|PZD1|第FKD1号付款单|100201|工行|银行存款_工行|0|-2.5|未审核|7|0|9|1|0|1|付|K001|||0|0||美元|6.5");
}

TEST_F(VoucherLinesTest, TheMoneyIsThatOfTheScreenAndOfABankBillTheBase)
{
  const auto money = [this](const VoucherBill& bill) {
    write(bill);
    return file.rows("select distinct MoneyName,MoneyRate,Summary from TabWarrantInf");
  };
  EXPECT_EQ(money(bank), "人民币|1|第CQD1号银行存取单");
  file.run("update TabMoneyType set Rate=1.1 where IsBWB='是'");
  EXPECT_EQ(money(bank), "人民币|1.1|第CQD1号银行存取单") << "a single-precision rate shows no more digits than it has";
  expense.TxtMoneyName.clear();
  expense.TxtMoneyRate = "6.5x";
  EXPECT_EQ(money(expense), "|6.5|第FYD1号费用开支单");
  EXPECT_EQ(money(income), "人民币|1|第QSD1号其他收入单");
  EXPECT_EQ(money(supplierOffset), "人民币|1|第DCD1号费用抵冲单");
  EXPECT_EQ(money(receipt), "人民币|1|第SKD1号收款单");
}
