#include "accountset/Schema.h"

// The money documents, whose rows are written by position, and the links by which they settle goods bills.
namespace Schema {
namespace {

using enum ColumnType;
using enum Presence;

// Payment and receipt.
constexpr Column FundBill[] = {
    {"Code", Text, Required}, {"Datee", Date},     {"UnitCode", Text},    {"UnitName", Text}, {"Operator", Text},
    {"SumMoney", Money},      {"Remark", Text},    {"BillType", Text},    {"State", Text},    {"Report", Text},
    {"SaleMan", Text},        {"MoneyName", Text}, {"MoneyRate", Single}, {"Auditing", Text},
};

constexpr Column FundBillInf[] = {
    {"LineNo", Integer}, {"Datee", Date},          {"BillCode", Text, Required}, {"UnitCode", Text},
    {"UnitName", Text},  {"AccountantCode", Text}, {"AccountantName", Text},     {"Moneyy", Money},
    {"Remark", Text},    {"State", Text},          {"MoneyName", Text},          {"MoneyRate", Single},
    {"Auditing", Text},
};

// Bank deposit and withdrawal: out of account C, into account R.
constexpr Column KeepTake[] = {
    {"Code", Text, Required}, {"Datee", Date},        {"SumMoney", Money},    {"AccountCodeC", Text},
    {"AccountNameC", Text},   {"AccountCodeR", Text}, {"AccountNameR", Text}, {"Operator", Text},
    {"Remark", Text},         {"BillType", Text},     {"State", Text},        {"Report", Text},
    {"SaleMan", Text},        {"MoneyName", Text},    {"MoneyRate", Single},  {"Auditing", Text},
};

// Expense and other income.
constexpr Column FeeBill[] = {
    {"Code", Text, Required}, {"Datee", Date},    {"SumMoney", Money},  {"Cash", Money},     {"Credit", Money},     {"CashCode", Text},
    {"CreditCode", Text},     {"CashName", Text}, {"CreditName", Text}, {"Operator", Text},  {"Remark", Text},      {"BillType", Text},
    {"State", Text},          {"Report", Text},   {"SaleMan", Text},    {"MoneyName", Text}, {"MoneyRate", Single}, {"Auditing", Text},
};

constexpr Column FeeBillInf[] = {
    {"LineNo", Integer}, {"Datee", Date}, {"Code", Text, Required}, {"AccountCode", Text}, {"AccountName", Text}, {"Moneyy", Money},
    {"Remark", Text},    {"State", Text}, {"MoneyName", Text},      {"MoneyRate", Single}, {"Auditing", Text},
};

constexpr Column Sustain[] = {
    {"Code", Text, Required}, {"Datee", Date},   {"UnitCode", Text},  {"UnitName", Text},    {"Operator", Text},
    {"SumMoney", Money},      {"Remark", Text},  {"BillType", Text},  {"State", Text},       {"SustainType", Text},
    {"Report", Text},         {"SaleMan", Text}, {"MoneyName", Text}, {"MoneyRate", Single}, {"Auditing", Text},
};

constexpr Column SustainInf[] = {
    {"LineNo", Integer},      {"Datee", Date},          {"Code", Text, Required}, {"UnitCode", Text}, {"UnitName", Text},
    {"AccountantCode", Text}, {"AccountantName", Text}, {"Moneyy", Money},        {"Remark", Text},   {"State", Text},
    {"MoneyName", Text},      {"MoneyRate", Single},    {"Auditing", Text},
};

// The date of the link is stored as it was written, with the space before it.
constexpr Column SFKHeXiao[] = {
    {"HXDatee", Date}, {"InOutBillCode", Text}, {"SFKBillCode", Text}, {"HXMoney", Money}, {"InOutBillDatee", Date}, {"SFKBillDatee", Date},
};

constexpr Table Tables[] = {
    // The month list of a screen needs only "Datee, Code".
    {"TabPayfundBill", FundBill, "Code", {"Datee, Code"}},
    {"TabPayfundBillInf", FundBillInf, "BillCode, LineNo", {"UnitCode, Datee"}},
    {"TabGathefundBill", FundBill, "Code", {"Datee, Code"}},
    {"TabGathefundBillInf", FundBillInf, "BillCode, LineNo", {"UnitCode, Datee"}},
    {"TabKeepTake", KeepTake, "Code", {"Datee, Code"}},
    {"TabFee", FeeBill, "Code", {"Datee, Code"}},
    {"TabFeeInf", FeeBillInf, "Code, LineNo"},
    {"TabElseIncome", FeeBill, "Code", {"Datee, Code"}},
    {"TabElseIncomeInf", FeeBillInf, "Code, LineNo"},
    {"TabSustain", Sustain, "Code", {"Datee, Code"}},
    {"TabSustainInf", SustainInf, "Code, LineNo", {"UnitCode, Datee"}},
    // A pair of bills occurs once because a writer deletes before it inserts, not because of a key.
    {"TabSFKHeXiao", SFKHeXiao, "", {"InOutBillCode", "SFKBillCode"}},
};

} // namespace

std::span<const Table> cashBillTables()
{
  return Tables;
}

} // namespace Schema
