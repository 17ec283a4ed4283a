#pragma once

#include "ledger/BillKinds.h"
#include "samplefirm/SampleGoodsBills.h"

// The money documents of the sample firm, and which goods bills they settle.
namespace SampleFirm {

// What differs between the kinds of money documents.
struct CashKind {
  const BillKind& kind;
  QStringView billType;
  QStringView settingName; // under which the accounting keeps how its vouchers are made
  QStringView voucherType;
  QStringView voucherWord;
  QStringView summaryEnd;
  bool linesAreDebit;
  const OffsetMode* mode = nullptr;

  constexpr CashKind(const BillKind& bill, QStringView type, QStringView word, QStringView end, bool debit)
      : kind(bill), billType(bill.operation), settingName(bill.name), voucherType(type), voucherWord(word), summaryEnd(end),
        linesAreDebit(debit)
  {
  }
  constexpr CashKind of(QStringView ofType) const
  {
    CashKind other(*this);
    other.billType = ofType;
    return other;
  }
  constexpr CashKind of(const OffsetMode& ofMode, bool debit) const
  {
    CashKind other(*this);
    other.settingName = ofMode.name;
    other.mode = &ofMode;
    other.linesAreDebit = debit;
    return other;
  }
};

inline constexpr CashKind AnyTransfer(BillKinds::Bank, u"付款凭证", u"付", u"号银行存取单", true);
inline constexpr CashKind AnyOffset(BillKinds::FeeOffset, u"转账凭证", u"转", u"号费用抵冲单", true);
inline constexpr CashKind CashKinds[] = {
    {BillKinds::Payment, u"付款凭证", u"付", u"号付款单", false},
    {BillKinds::Receipt, u"收款凭证", u"收", u"号收款单", true},
    AnyTransfer.of(u"银行存取（存现）"),
    AnyTransfer.of(u"银行存取（取现）"),
    {BillKinds::Expense, u"付款凭证", u"付", u"号费用开支单", true},
    {BillKinds::OtherIncome, u"收款凭证", u"收", u"号其他收入单", false},
    AnyOffset.of(BillKinds::CustomerOffset, true),
    AnyOffset.of(BillKinds::SupplierOffset, false),
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
  // The counterpart of the lines: the partner's account, the account the money comes from, or the cash
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
