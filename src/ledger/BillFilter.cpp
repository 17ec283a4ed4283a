#include "ledger/BillFilter.h"

#include "platform/Trim.h"

namespace ModFuntion {
namespace {

struct TextColumn {
  const char* name;
  QString BillFilter::*value;
};

constexpr TextColumn TextColumns[] = {
    {"WareSpec", &BillFilter::WareSpec},
    {"Manufacturer", &BillFilter::Manufacturer},
    {"Brand", &BillFilter::Brand},
    {"PCode", &BillFilter::PCode},
};

bool isGiven(const QString& value)
{
  return !Trim(value).isEmpty();
}

// A column as the filter's table has it.
Statement columnOf(const BillFilter& filter, const char* column)
{
  return filter.table.isEmpty() ? Statement(u"{}", SqlName(column)) : Statement(u"{}.{}", SqlName(filter.table), SqlName(column));
}

Statement attributeClause(const BillFilter& filter)
{
  if (!isGiven(filter.AttributeCode))
    return {};
  const Statement column = columnOf(filter, "AttributeCode");
  return filter.exactAttribute ? Statement(u"  and  {}  like '{}%' ", column, filter.AttributeCode)
                               : Statement(u"  and  {} = '{}' ", column, filter.AttributeCode);
}

Statement auditedClause(const BillFilter& filter)
{
  if (!filter.auditedOnly || filter.table == u"TabWarehouseTurn")
    return {};
  return {u"  and  {} <> '' ", columnOf(filter, "Auditing")};
}

Statement currencyClause(const BillFilter& filter)
{
  if (!isGiven(filter.moneyName) || isAllCurrencies(filter.moneyName))
    return {};
  return {u"  and  {} = '{}' ", columnOf(filter, "MoneyName"), filter.moneyName};
}

} // namespace

Statement BuildBillFilter(const BillFilter& filter)
{
  Statement clauses = attributeClause(filter);
  for (const TextColumn& column : TextColumns)
    if (const QString& value = filter.*column.value; isGiven(value))
      clauses += Statement(u"  and  {} = '{}' ", columnOf(filter, column.name), value);
  return clauses + auditedClause(filter) + currencyClause(filter);
}

} // namespace ModFuntion
