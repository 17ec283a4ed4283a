#include "accountset/Schema.h"

// The masters: accounts, partners, goods, staff, and the trees of categories that the pickers show.
namespace Schema {
namespace {

using enum ColumnType;
using enum Presence;

constexpr Column AccountantType[] = {
    {"Code", Text, Required},
    {"ParentCode", Text},
    {"Name", Text},
    {"AllName", Text},
    {"FX", Text},
    {"WLHS", Integer, ZeroIfLeftOut},
    {"BMHS", Integer, ZeroIfLeftOut},
    {"GRHS", Integer, ZeroIfLeftOut},
    {"ZDYHS", Integer, ZeroIfLeftOut},
    {"FC", Integer, ZeroIfLeftOut},
};

constexpr Column Client[] = {
    {"Code", Text, Required}, {"Name", Text},     {"Address", Text},  {"Tel", Text},          {"LinkMan", Text},
    {"TaxCode", Text},        {"Bank", Text},     {"BankCode", Text}, {"YingShouCode", Text}, {"YuShouCode", Text},
    {"YingFuCode", Text},     {"YuFuCode", Text}, {"SaleMan", Text},  {"TypeCode", Text},     {"ParentCode", Text},
};

constexpr Column ClientOfSale[] = {
    {"Code", Text, Required}, {"Name", Text}, {"ParentCode", Text}, {"Address", Text}, {"Tel", Text}, {"LinkMan", Text},
};

constexpr Column ClientTurn[] = {
    {"Code", Text, Required}, {"Datee", Date}, {"Num", Integer}, {"SumMoney", Money}, {"MoneyRate", Single}, {"MoneyName", Text},
};

constexpr Column Provide[] = {{"Code", Text, Required}, {"Name", Text}, {"ParentCode", Text}, {"TypeCode", Text}};

constexpr Column Ware[] = {
    {"Code", Text, Required}, {"Name", Text}, {"ParentCode", Text}, {"Spec", Text}, {"Unite", Text}, {"ZJF", Text}, {"TypeCode", Text},
};

constexpr Column Stuff[] = {{"Code", Text, Required}, {"Name", Text}, {"ParentCode", Text}, {"DepartmentCode", Text}};

constexpr Column Category[] = {{"Code", Text, Required}, {"Name", Text}, {"ParentCode", Text}};

constexpr Table Tables[] = {
    // A damaged chart may contain a code twice; code that walks it must cope with that.
    {"TabAccountantType", AccountantType, "", {"Code", "ParentCode", "Name"}},
    // Partners may share a name, not a code.
    {"TabClient", Client, "Code", {"Name", "ParentCode", "TypeCode"}},
    {"TabClient_Sale", ClientOfSale, "Code", {"ParentCode"}},
    // One row per closing and currency, and the opening, in the order in which they were written.
    {"TabClientTurn", ClientTurn, "", {"Code, Datee"}},
    {"TabProvide", Provide, "Code", {"Name", "ParentCode", "TypeCode"}},
    {"TabWare", Ware, "Code", {"Name", "ParentCode", "TypeCode"}},
    {"TabStuff", Stuff, "Code", {"Name", "ParentCode", "DepartmentCode"}},
    {"TabClientType", Category, "Code", {"ParentCode"}},
    {"TabWareType", Category, "Code", {"ParentCode"}},
    {"TabDepartmentType", Category, "Code", {"ParentCode"}},
    {"TabWarehouseType", Category, "Code", {"ParentCode"}},
    {"TabAttribute", Category, "Code"},
};

} // namespace

std::span<const Table> masterTables()
{
  return Tables;
}

} // namespace Schema
