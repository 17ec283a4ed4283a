#include "vouchers/VoucherLineRules.h"

namespace Vouchers {
namespace {

using enum LineSource;
using enum Side;

// Of two rows for one table the first that fits holds: of fee offsets the supplier's, then all others.
constexpr VoucherRules AllRules[] = {
    {.headerTable = "TabPayfundBill",
     .suffix = u"号付款单",
     .partnerAccounts = u"YingFuCode ,YuFuCode",
     .rowTable = "TabPayfundBillInf",
     .rowKey = "BillCode",
     .lines = {{
         {Partner, "YingFuCode", "UnitName", "SumMoney", Debtor, 1, true},
         {Rows, "AccountantCode", "AccountantName", "Moneyy", Lender},
     }}},
    {.headerTable = "TabGathefundBill",
     .suffix = u"号收款单",
     .partnerAccounts = u"YingShouCode ,YuShouCode",
     .rowTable = "TabGathefundBillInf",
     .rowKey = "BillCode",
     .lines = {{
         {Partner, "YingShouCode", "UnitName", "SumMoney", Lender, 1, true},
         {Rows, "AccountantCode", "AccountantName", "Moneyy", Debtor},
     }}},
    // A bill without lines: its header joins the chart twice, out of account C and into account R.
    {.headerTable = "TabKeepTake",
     .suffix = u"号银行存取单",
     .inBaseMoney = true,
     .rowTable = "TabKeepTake",
     .rowKey = "Code",
     .lines = {{
         {Rows, "AccountCodeC", "AccountNameC", "SumMoney", Lender},
         {Rows, "AccountCodeR", "AccountNameR", "SumMoney", Debtor},
     }}},
    {.headerTable = "TabFee",
     .suffix = u"号费用开支单",
     .rowTable = "TabFeeInf",
     .rowKey = "Code",
     .lines = {{
         {Header, "CashCode", "CashName", "Cash", Lender},
         {Header, "CreditCode", "CreditName", "Credit", Lender},
         {Rows, "AccountCode", "AccountName", "Moneyy", Debtor},
     }}},
    // Unlike an expense: the cash and the bank line have their numbers whether they are written or not.
    {.headerTable = "TabElseIncome",
     .suffix = u"号其他收入单",
     .rowTable = "TabElseIncomeInf",
     .rowKey = "Code",
     .lines = {{
         {Header, "CashCode", "CashName", "Cash", Debtor, 1},
         {Header, "CreditCode", "CreditName", "Credit", Debtor, 2},
         {Rows, "AccountCode", "AccountName", "Moneyy", Lender},
     }}},
    {.headerTable = "TabSustain",
     .SustainType = u"供应商",
     .suffix = u"号费用抵冲单",
     .partnerAccounts = u"YingFuCode,YingShouCode",
     .rowTable = "TabSustainInf",
     .rowKey = "Code",
     .lines = {{
         {Partner, "YingFuCode", "UnitName", "SumMoney", Debtor, 1},
         {Rows, "AccountantCode", "AccountantName", "Moneyy", Lender},
     }}},
    {.headerTable = "TabSustain",
     .suffix = u"号费用抵冲单",
     .partnerAccounts = u"YingFuCode,YingShouCode",
     .rowTable = "TabSustainInf",
     .rowKey = "Code",
     .lines = {{
         {Partner, "YingShouCode", "UnitName", "SumMoney", Lender, 1},
         {Rows, "AccountantCode", "AccountantName", "Moneyy", Debtor},
     }}},
};

} // namespace

const VoucherRules* voucherRulesFor(const QString& headerTable, const QString& SustainType)
{
  for (const VoucherRules& rules : AllRules) {
    const QStringView ofType(rules.SustainType);
    if (headerTable == QLatin1String(rules.headerTable) && (ofType.isEmpty() || SustainType == ofType))
      return &rules;
  }
  return nullptr;
}

} // namespace Vouchers
