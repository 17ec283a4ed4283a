#include "accountset/Schema.h"

// The documents of the goods programs. This program reads them and writes only the settled amount of a bill (HXMoney)
// and whether a line was matched with its invoice (GouDui).
namespace Schema {
namespace {

using enum ColumnType;
using enum Presence;

constexpr Column GoodsBill[] = {
    {"Code", Text, Required},
    {"Datee", Date},
    {"BillType", Text},
    {"UnitCode", Text},
    {"UnitName", Text},
    {"SaleMan", Text},
    {"Operator", Text},
    {"SumMoney", Money, ZeroIfLeftOut},
    {"AllDiscount", Money, ZeroIfLeftOut},
    {"Cash", Money, ZeroIfLeftOut},
    {"Credit", Money, ZeroIfLeftOut},
    {"HXMoney", Money, ZeroIfLeftOut},
    {"Remark", Text},
    {"State", Text},
    {"InvoiceType", Text},
    {"MoneyName", Text},
    {"MoneyRate", Single},
    {"Auditing", Text},
};

// GouDui of a line that was never touched is null, neither on nor off.
constexpr Column GoodsBillInf[] = {
    {"BillCode", Text, Required},
    {"Num", Integer},
    {"Datee", Date},
    {"WareCode", Text},
    {"WareName", Text},
    {"WareSpec", Text},
    {"AttributeCode", Text},
    {"Unite", Text},
    {"Amount", Money},
    {"Price", Money},
    {"Moneyy", Money},
    {"DisCount", Money},
    {"Price_Discount", Money},
    {"Moneyy_Discount", Money},
    {"TaxLu", Money},
    {"Tax", Money},
    {"Price_Tax", Money},
    {"Moneyy_Tax", Money},
    {"Remark", Text},
    {"GouDui", Integer},
};

// Orders and stock movements: only their codes are read here.
constexpr Column StockBill[] = {
    {"Code", Text, Required}, {"Datee", Date},     {"BillType", Text}, {"UnitCode", Text}, {"UnitName", Text},
    {"Operator", Text},       {"SumMoney", Money}, {"Remark", Text},   {"State", Text},    {"Auditing", Text},
};

constexpr Column StockBillInf[] = {
    {"BillCode", Text, Required},
    {"Num", Integer},
    {"Datee", Date},
    {"WareCode", Text},
    {"WareName", Text},
    {"Unite", Text},
    {"Amount", Money},
    {"Price", Money},
    {"Moneyy", Money},
    {"Remark", Text},
};

constexpr Column WarehouseTurn[] = {
    {"Datee", Date}, {"WareCode", Text}, {"AttributeCode", Text}, {"WareSpec", Text},  {"Manufacturer", Text},
    {"Brand", Text}, {"PCode", Text},    {"Amount", Money},       {"SumMoney", Money}, {"MoneyName", Text},
};

constexpr Table Tables[] = {
    // A partner's balance and open bills are queried by partner and date, lists of all bills by date.
    {"TabInBill", GoodsBill, "Code", {"UnitCode, Datee", "Datee"}},
    {"TabInBillInf", GoodsBillInf, "BillCode, Num"},
    {"TabInCancleBill", GoodsBill, "Code", {"UnitCode, Datee", "Datee"}},
    {"TabInCancleBillInf", GoodsBillInf, "BillCode, Num"},
    {"TabOutBill", GoodsBill, "Code", {"UnitCode, Datee", "Datee"}},
    {"TabOutBillInf", GoodsBillInf, "BillCode, Num"},
    {"TabOutCancleBill", GoodsBill, "Code", {"UnitCode, Datee", "Datee"}},
    {"TabOutCancleBillInf", GoodsBillInf, "BillCode, Num"},
    {"TabElseInBill", GoodsBill, "Code", {"UnitCode, Datee", "Datee"}},
    {"TabElseInBillInf", GoodsBillInf, "BillCode, Num"},
    {"TabElseOutBill", GoodsBill, "Code", {"UnitCode, Datee", "Datee"}},
    {"TabElseOutBillInf", GoodsBillInf, "BillCode, Num"},
    {"TabInOrderBill", StockBill, "Code"},
    {"TabInOrderBillInf", StockBillInf, "BillCode, Num"},
    {"TabOutOrderBill", StockBill, "Code"},
    {"TabOutOrderBillInf", StockBillInf, "BillCode, Num"},
    {"TabSamePriceMove", StockBill, "Code"},
    {"TabSamePriceMoveInf", StockBillInf, "BillCode, Num"},
    {"TabDiffPriceMove", StockBill, "Code"},
    {"TabDiffPriceMoveInf", StockBillInf, "BillCode, Num"},
    {"TabChangePrice", StockBill, "Code"},
    {"TabChangePriceInf", StockBillInf, "BillCode, Num"},
    {"TabCheckLose", StockBill, "Code"},
    {"TabCheckLoseInf", StockBillInf, "BillCode, Num"},
    {"TabCheckOver", StockBill, "Code"},
    {"TabCheckOverInf", StockBillInf, "BillCode, Num"},
    {"TabWareGroup", StockBill, "Code"},
    {"TabWareGroupInf", StockBillInf, "BillCode, Num"},
    {"TabWarePiece", StockBill, "Code"},
    {"TabWarePieceInf", StockBillInf, "BillCode, Num"},
    {"TabWarehouseTurn", WarehouseTurn, "", {"WareCode, Datee"}},
};

} // namespace

std::span<const Table> goodsBillTables()
{
  return Tables;
}

} // namespace Schema
