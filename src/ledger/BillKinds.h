#pragma once

#include <QLatin1String>
#include <QStringView>

#include <algorithm>
#include <span>

// The catalogue of the bills that this program keeps, one row per kind. Whatever needs a name, a code prefix, a table
// or a column of a kind of bill looks it up here: the entry, the launcher, the bill screens, vouchers, balance,
// write-off and the check of an account set.

// The rows of a bill's lines.
struct BillLines {
  const char* table;
  const char* billCode; // column that holds the code of the bill
  const char* accountCode;
  const char* accountName;
};

// How a kind of bill is written off against goods bills.
struct BillWriteOff {
  const char16_t* mode;        // HXMode
  const char16_t* sourceOrder; // opens the bill of a link read-only
  const char* goodsTable;
  std::span<const char16_t* const> goodsTypes; // BillType of these goods bills
};

// A kind of fee offset: one pair of tables holds both.
struct OffsetMode {
  const char16_t* name; // directive, right, and kind in the voucher settings
  const char16_t* title;
  const char16_t* type; // SustainType
  const char* partnerAccount;
};

using BillNames = std::span<const char16_t* const>;

struct BillKind {
  const char16_t* name;      // title; also of layouts, templates and voucher settings
  const char16_t* operation; // directive, right, and BillType
  const char* screen;
  const char* prefix; // of the codes
  const char* headerTable;
  bool hasPartner = false;
  const BillLines* lines = nullptr;
  const char* partnerAccount = ""; // column of TabClient with the account that the voucher needs
  const BillWriteOff* writeOff = nullptr;
  // Where the suite has several names: directives that open the screen for a new bill, and for a stored one, instead
  // of the operation; names of the kind, and those of its images.
  BillNames newOrders = {};
  BillNames viewOrders = {};
  BillNames names = {};
  BillNames imageNames = {};

  bool opensNew(QStringView order) const { return isOneOf(order, newOrders, operation); }
  bool opensStored(QStringView order) const { return isOneOf(order, viewOrders, operation); }
  bool isCalled(QStringView other) const { return isOneOf(other, names, name); }
  bool hasImagesCalled(QStringView other) const { return imageNames.empty() ? isCalled(other) : isOneOf(other, imageNames, name); }

private:
  static bool isOneOf(QStringView text, BillNames list, QStringView otherwise)
  {
    return list.empty() ? text == otherwise : std::any_of(list.begin(), list.end(), [text](QStringView one) { return one == text; });
  }
};

namespace BillKinds {

inline constexpr BillLines PaymentLines{"TabPayfundBillInf", "BillCode", "AccountantCode", "AccountantName"};
inline constexpr const char16_t* PurchaseTypes[] = {u"采购入库", u"购买入库"};
inline constexpr BillWriteOff PaymentWriteOff{u"付款核销", u"付款核销查询原单", "TabInBill", PurchaseTypes};
inline constexpr BillKind Payment{.name = u"付款单",
                                  .operation = u"付款",
                                  .screen = "frmPayfund",
                                  .prefix = "FKD",
                                  .headerTable = "TabPayfundBill",
                                  .hasPartner = true,
                                  .lines = &PaymentLines,
                                  .partnerAccount = "YingFuCode",
                                  .writeOff = &PaymentWriteOff};

inline constexpr BillLines ReceiptLines{"TabGathefundBillInf", "BillCode", "AccountantCode", "AccountantName"};
inline constexpr const char16_t* SaleTypes[] = {u"销售出库"};
inline constexpr BillWriteOff ReceiptWriteOff{u"收款核销", u"收款核销查询原单", "TabOutBill", SaleTypes};
inline constexpr BillKind Receipt{.name = u"收款单",
                                  .operation = u"收款",
                                  .screen = "frmGathefund",
                                  .prefix = "SKD",
                                  .headerTable = "TabGathefundBill",
                                  .hasPartner = true,
                                  .lines = &ReceiptLines,
                                  .partnerAccount = "YingShouCode",
                                  .writeOff = &ReceiptWriteOff};

// The whole bill is its header. The programs of the suite spell its name differently.
inline constexpr const char16_t* BankViews[] = {u"银行存取（存现）", u"银行存取（取现）", u"银行存取(存现)", u"银行存取(取现)"};
inline constexpr const char16_t* BankNames[] = {u"银行存取款单", u"银行存取(取现)单", u"银行存取(存现)单"};
inline constexpr const char16_t* BankImages[] = {u"银行存取款单", u"银行存取（取现）单", u"银行存取(存现)单"};
inline constexpr BillKind Bank{.name = u"银行存取款单",
                               .operation = u"银行存取",
                               .screen = "frmBankKeepTake",
                               .prefix = "CQD",
                               .headerTable = "TabKeepTake",
                               .viewOrders = BankViews,
                               .names = BankNames,
                               .imageNames = BankImages};

inline constexpr BillLines ExpenseLines{"TabFeeInf", "Code", "AccountCode", "AccountName"};
inline constexpr BillKind Expense{.name = u"费用开支单",
                                  .operation = u"费用开支",
                                  .screen = "frmFeeElseIncome",
                                  .prefix = "FYD",
                                  .headerTable = "TabFee",
                                  .lines = &ExpenseLines};

inline constexpr BillLines OtherIncomeLines{"TabElseIncomeInf", "Code", "AccountCode", "AccountName"};
inline constexpr BillKind OtherIncome{.name = u"其他收入单",
                                      .operation = u"其他收入",
                                      .screen = "frmFeeElseIncome",
                                      .prefix = "QSD",
                                      .headerTable = "TabElseIncome",
                                      .lines = &OtherIncomeLines};

inline constexpr OffsetMode CustomerOffset{u"费用抵冲(客户)", u"费用抵冲单--客户", u"客户", "YingShouCode"};
inline constexpr OffsetMode SupplierOffset{u"费用抵冲(供应商)", u"费用抵冲单--供应商", u"供应商", "YingFuCode"};
inline constexpr BillLines FeeOffsetLines{"TabSustainInf", "Code", "AccountantCode", "AccountantName"};
inline constexpr const char16_t* FeeOffsetOrders[] = {CustomerOffset.name, SupplierOffset.name};
inline constexpr const char16_t* FeeOffsetNames[] = {u"费用抵冲单", u"费用抵冲(客户)单", u"费用抵冲(供应商)单", CustomerOffset.name,
                                                     SupplierOffset.name};
inline constexpr BillKind FeeOffset{.name = u"费用抵冲单",
                                    .operation = u"费用抵冲",
                                    .screen = "frmFeeSustain",
                                    .prefix = "DCD",
                                    .headerTable = "TabSustain",
                                    .hasPartner = true,
                                    .lines = &FeeOffsetLines,
                                    .newOrders = FeeOffsetOrders,
                                    .names = FeeOffsetNames};

inline constexpr const BillKind* All[] = {&Payment, &Receipt, &Bank, &Expense, &OtherIncome, &FeeOffset};

// The kind for which `is` returns true, for example `first(&BillKind::opensNew, order)`; null if there is none.
inline const BillKind* first(bool (BillKind::*is)(QStringView) const, QStringView text)
{
  for (const BillKind* const kind : All)
    if ((kind->*is)(text))
      return kind;
  return nullptr;
}

} // namespace BillKinds
