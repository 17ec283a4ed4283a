#include "accountset/Schema.h"

// The accounting side: books, voucher types and settings, periods, vouchers (written by position) and
// the journals.
namespace Schema {
namespace {

using enum ColumnType;
using enum Presence;

constexpr Column AccountantNameSet[] = {{"Code", Integer, Required}, {"Main", Integer}};

constexpr Column WarrantTypeSet[] = {{"Name", Text, Required}, {"Zi", Text}};

constexpr Column JXCAccount[] = {
    {"JXCTabName", Text, Required}, {"IsWarrant", Integer},    {"AccountBook1", Integer},
    {"AccountBook2", Integer},      {"AccountBook3", Integer}, {"WarrantType", Text},
};

constexpr Column WriteAccountant[] = {{"DateeY", Text, Required}, {"DateeM", Text, Required}, {"State", Text}};

constexpr Column Warrant[] = {
    {"Code", Text, Required},
    {"Datee", Date},
    {"DateeY", Text},
    {"DateeM", Text},
    {"WarrantNum1", Integer},
    {"AffixNum1", Integer},
    {"WriteWarrant", Text},
    {"Auditing", Text},
    {"RecordAccountant", Text},
    {"WarrantKind", Text},
    {"State", Text},
    {"SumDebtor", Money},
    {"SumLender", Money},
    {"JXCBillCode", Text},
    {"WarrantNum2", Integer},
    {"AffixNum2", Integer},
    {"WarrantNum3", Integer},
    {"AffixNum3", Integer},
    {"AccountBook1", Integer},
    {"AccountBook2", Integer},
    {"AccountBook3", Integer},
    {"Type", Text},
    {"ZG", Text},
    {"ZD", Text},
    {"IsLoss", Integer},
};

// Amount and Price belong to accounts kept by quantity; the vouchers of the cash bills leave them 0.
constexpr Column WarrantInf[] = {
    {"LineNum", Integer},
    {"Datee", Date},
    {"DateeY", Text},
    {"DateeM", Text},
    {"BillCode", Text, Required},
    {"Summary", Text},
    {"AccountantCode", Text},
    {"AccountantName", Text},
    {"AccountantAllName", Text},
    {"Debtor", Money},
    {"Lender", Money},
    {"State", Text},
    {"WarrantNum1", Integer},
    {"WarrantNum2", Integer},
    {"WarrantNum3", Integer},
    {"AccountBook1", Integer},
    {"AccountBook2", Integer},
    {"AccountBook3", Integer},
    {"ZD", Text},
    {"WLHS", Text},
    {"BMHS", Text},
    {"GRHS", Text},
    {"Amount", Money},
    {"Price", Money},
    {"ZDYHS", Text},
    {"MoneyName", Text},
    {"MoneyRate", Single},
};

constexpr Column AllAccount[] = {
    {"DateeY", Text}, {"DateeM", Text}, {"AccountantCode", Text}, {"Debtor", Money}, {"Lender", Money},
};

constexpr Column DayAccount[] = {
    {"Code", Text, Required}, {"Datee", Date},   {"AccountantCode", Text}, {"AccountantName", Text}, {"Summary", Text},
    {"Debtor", Money},        {"Lender", Money}, {"Operator", Text},       {"Remark", Text},
};

constexpr Table Tables[] = {
    {"TabAccountantNameSet", AccountantNameSet, "Code"},
    {"TabWarrantTypeSet", WarrantTypeSet, "Name"},
    {"TabJXCAccount", JXCAccount, "JXCTabName"},
    {"TabWriteAccountant", WriteAccountant, "DateeY, DateeM"},
    {"TabWarrant", Warrant, "Code", {"JXCBillCode, Datee", "Datee"}},
    // A partner's lines are found by the partner. Those of an account without partner accounting are found from the
    // manual vouchers: an index by account would visit every line of the account.
    {"TabWarrantInf", WarrantInf, "BillCode, LineNum", {"WLHS, AccountantCode"}},
    {"TabAllAccount", AllAccount, "", {"DateeY, DateeM"}},
    {"TabDayAccount_Cash", DayAccount, "Code"},
    {"TabDayAccount_Bank", DayAccount, "Code"},
    {"TabDayAccount_BankBill", DayAccount, "Code"},
};

} // namespace

std::span<const Table> voucherTables()
{
  return Tables;
}

} // namespace Schema
