#include "vouchers/VoucherLineRules.h"

namespace Vouchers {
namespace {

using enum LineSource;
using enum Side;

// The first matching row of a table applies: for fee offsets the supplier's, then all others.
constexpr VoucherRules AllRules[] = {
    {.kind = BillKinds::Payment,
     .suffix = u"号付款单",
     .partnerAccounts = u"YingFuCode ,YuFuCode",
     .lines = {{
         {Partner, BillKinds::Payment.partnerAccount, "UnitName", "SumMoney", Debtor, 1, true},
         {Rows, BillKinds::PaymentLines.accountCode, BillKinds::PaymentLines.accountName, "Moneyy", Lender},
     }}},
    {.kind = BillKinds::Receipt,
     .suffix = u"号收款单",
     .partnerAccounts = u"YingShouCode ,YuShouCode",
     .lines = {{
         {Partner, BillKinds::Receipt.partnerAccount, "UnitName", "SumMoney", Lender, 1, true},
         {Rows, BillKinds::ReceiptLines.accountCode, BillKinds::ReceiptLines.accountName, "Moneyy", Debtor},
     }}},
    // A bill without lines: its header names two accounts, from C to R.
    {.kind = BillKinds::Bank,
     .suffix = u"号银行存取单",
     .inBaseMoney = true,
     .lines = {{
         {Rows, "AccountCodeC", "AccountNameC", "SumMoney", Lender},
         {Rows, "AccountCodeR", "AccountNameR", "SumMoney", Debtor},
     }}},
    {.kind = BillKinds::Expense,
     .suffix = u"号费用开支单",
     .lines = {{
         {Header, "CashCode", "CashName", "Cash", Lender},
         {Header, "CreditCode", "CreditName", "Credit", Lender},
         {Rows, BillKinds::ExpenseLines.accountCode, BillKinds::ExpenseLines.accountName, "Moneyy", Debtor},
     }}},
    // Unlike an expense, the cash and the bank line have fixed numbers whether they are written or not.
    {.kind = BillKinds::OtherIncome,
     .suffix = u"号其他收入单",
     .lines = {{
         {Header, "CashCode", "CashName", "Cash", Debtor, 1},
         {Header, "CreditCode", "CreditName", "Credit", Debtor, 2},
         {Rows, BillKinds::OtherIncomeLines.accountCode, BillKinds::OtherIncomeLines.accountName, "Moneyy", Lender},
     }}},
    {.kind = BillKinds::FeeOffset,
     .mode = &BillKinds::SupplierOffset,
     .suffix = u"号费用抵冲单",
     .partnerAccounts = u"YingFuCode,YingShouCode",
     .lines = {{
         {Partner, BillKinds::SupplierOffset.partnerAccount, "UnitName", "SumMoney", Debtor, 1},
         {Rows, BillKinds::FeeOffsetLines.accountCode, BillKinds::FeeOffsetLines.accountName, "Moneyy", Lender},
     }}},
    {.kind = BillKinds::FeeOffset,
     .suffix = u"号费用抵冲单",
     .partnerAccounts = u"YingFuCode,YingShouCode",
     .lines = {{
         {Partner, BillKinds::CustomerOffset.partnerAccount, "UnitName", "SumMoney", Lender, 1},
         {Rows, BillKinds::FeeOffsetLines.accountCode, BillKinds::FeeOffsetLines.accountName, "Moneyy", Debtor},
     }}},
};

} // namespace

const VoucherRules* voucherRulesFor(const QString& headerTable, const QString& SustainType)
{
  for (const VoucherRules& rules : AllRules) {
    if (headerTable == QLatin1String(rules.kind.headerTable) && (!rules.mode || SustainType == QStringView(rules.mode->type)))
      return &rules;
  }
  return nullptr;
}

} // namespace Vouchers
