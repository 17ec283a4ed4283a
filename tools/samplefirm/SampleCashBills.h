#pragma once

#include "samplefirm/SampleGoodsBills.h"

// The money documents of the sample firm, and which goods bills they settle.
namespace SampleFirm {

// How the header and the lines of a money document are laid out.
enum class CashLayout { Fund, Transfer, Fee, Offset };

// What differs between the kinds of money documents.
struct CashKind {
  CashLayout layout;
  const char* headerTable;
  const char* lineTable; // null if it has no lines
  QStringView prefix;
  QStringView billType;
  QStringView settingName; // under which the accounting keeps how its vouchers are made
  QStringView voucherType;
  QStringView voucherWord;
  QStringView summaryEnd;
  bool linesAreDebit;
};

inline constexpr CashKind CashKinds[] = {
    {CashLayout::Fund, "TabPayfundBill", "TabPayfundBillInf", u"FKD", u"付款", u"付款单", u"付款凭证", u"付", u"号付款单", false},
    {CashLayout::Fund, "TabGathefundBill", "TabGathefundBillInf", u"SKD", u"收款", u"收款单", u"收款凭证", u"收", u"号收款单", true},
    {CashLayout::Transfer, "TabKeepTake", nullptr, u"CQD", u"银行存取（存现）", u"银行存取款单", u"付款凭证", u"付", u"号银行存取单", true},
    {CashLayout::Transfer, "TabKeepTake", nullptr, u"CQD", u"银行存取（取现）", u"银行存取款单", u"付款凭证", u"付", u"号银行存取单", true},
    {CashLayout::Fee, "TabFee", "TabFeeInf", u"FYD", u"费用开支", u"费用开支单", u"付款凭证", u"付", u"号费用开支单", true},
    {CashLayout::Fee, "TabElseIncome", "TabElseIncomeInf", u"QSD", u"其他收入", u"其他收入单", u"收款凭证", u"收", u"号其他收入单", false},
    {CashLayout::Offset, "TabSustain", "TabSustainInf", u"DCD", u"费用抵冲", u"费用抵冲(客户)", u"转账凭证", u"转", u"号费用抵冲单", true},
    {CashLayout::Offset, "TabSustain", "TabSustainInf", u"DCD", u"费用抵冲", u"费用抵冲(供应商)", u"转账凭证", u"转", u"号费用抵冲单",
     false},
};
inline constexpr const CashKind& Payment = CashKinds[0];
inline constexpr const CashKind& Receipt = CashKinds[1];
inline constexpr const CashKind& Deposit = CashKinds[2];
inline constexpr const CashKind& Withdrawal = CashKinds[3];
inline constexpr const CashKind& Expense = CashKinds[4];
inline constexpr const CashKind& Income = CashKinds[5];
inline constexpr const CashKind& CustomerOffset = CashKinds[6];
inline constexpr const CashKind& SupplierOffset = CashKinds[7];

struct AccountAmount {
  QStringView account;
  Currency money;
};

struct SettlementLink {
  const GoodsBill* goodsBill;
  Currency money;
};

struct CashBill {
  const CashKind* kind = nullptr;
  const Partner* partner = nullptr; // null where the kind has none
  QDate day;
  QString code;
  QStringView remark;
  bool isVoided = false;
  std::vector<AccountAmount> lines;
  // What stands against the lines: the partner's account, the account the money comes from, or the cash
  // and the bank part.
  std::vector<AccountAmount> counter;
  std::vector<SettlementLink> links;

  Currency sum() const;
  // Cash and bank parts of an expense or an income; empty account and 0 if there is none.
  AccountAmount counterOn(QStringView accountHead) const;
};

// In the order in which they were entered. Marks in the goods bills what is settled.
std::vector<CashBill> makeCashBills(std::vector<GoodsBill>& goodsBills);

// Headers, lines and links to goods bills.
void writeCashBills(RowWriter& rows, const std::vector<CashBill>& bills);

} // namespace SampleFirm
