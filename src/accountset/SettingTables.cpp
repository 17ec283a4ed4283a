#include "accountset/Schema.h"

// The settings of the account set: decimals, currencies, rights, calendar, closings, layouts, templates, and what is
// attached to a bill.
namespace Schema {
namespace {

using enum ColumnType;
using enum Presence;

constexpr Column DotSet[] = {{"Name", Text, Required}, {"Num", Integer}};

constexpr Column MoneyType[] = {{"Name", Text, Required}, {"Rate", Single}, {"IsBWB", Text}};

constexpr Column SysSetNew[] = {{"Name", Text, Required}, {"IsAllow", Integer}};

constexpr Column OperateRight[] = {
    {"UserName", Text, Required}, {"FunctionName", Text, Required}, {"AllowRead", Integer},     {"AllowEdit", Integer},
    {"AllowDelete", Integer},     {"AllowPrint", Integer},          {"AllowAuditing", Integer},
};

constexpr Column CloudAccountLoginInf[] = {{"Account", Text, Required}, {"Account2", Text, Required}, {"UserCode", Text}};

constexpr Column CompanyInf[] = {{"Name", Text}};

constexpr Column AccountAreaSet[] = {{"DateeM", Integer, Required}, {"DateeD", Integer}};

// Rows without a date are ignored when looking for the last closing.
constexpr Column Turn[] = {{"Datee", Date}};

constexpr Column PrintMSHSet[] = {
    {"TabName", Text, Required},    {"ColOrder", Integer, Required}, {"ColWidth", Integer},      {"ColElseName", Text},
    {"HeadAlign", Integer},         {"HeadFontName", Text},          {"HeadFontSize", Single},   {"HeadFontBold", Text},
    {"HeadFontItalic", Text},       {"HeadFontUnderline", Text},     {"HeadForeColor", Integer}, {"ContentAlign", Integer},
    {"ContentFontName", Text},      {"ContentFontSize", Single},     {"ContentFontBold", Text},  {"ContentFontItalic", Text},
    {"ContentFontUnderline", Text}, {"ContentForeColor", Integer},
};

constexpr Column ExcelTable[] = {{"TabName", Text, Required}, {"TabType", Text}, {"OrderBy", Integer}, {"TabInf", Binary}};

constexpr Column Img[] = {{"BillCode", Text, Required}, {"Type", Text}};

constexpr Table Tables[] = {
    {"TabDotSet", DotSet, "Name"},
    {"TabMoneyType", MoneyType, "Name"},
    {"TabSysSetNew", SysSetNew, "Name"},
    {"TabOperateRight", OperateRight, "UserName, FunctionName"},
    {"TabCloudAccountLoginInf", CloudAccountLoginInf, "Account, Account2"},
    {"TabCompanyInf", CompanyInf, ""},
    {"TabAccountAreaSet", AccountAreaSet, "DateeM"},
    {"TabTurn", Turn, "", {"Datee"}},
    {"TabTurnDay", Turn, "", {"Datee"}},
    {"TabPrintMSHSet", PrintMSHSet, "TabName, ColOrder"},
    // Templates are listed by kind of bill and loaded by name.
    {"TabExcelTable", ExcelTable, "TabType, TabName", {"TabName"}},
    {"TabImg", Img, "", {"BillCode"}},
};

} // namespace

std::span<const Table> settingTables()
{
  return Tables;
}

} // namespace Schema
