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

QString attributeClause(const BillFilter& filter, const QString& prefix)
{
  if (!isGiven(filter.AttributeCode))
    return {};
  const QString column = "  and  " + prefix + "AttributeCode ";
  return filter.exactAttribute ? column + " like '" + filter.AttributeCode + "%' " : column + "= '" + filter.AttributeCode + "' ";
}

QString auditedClause(const BillFilter& filter, const QString& prefix)
{
  return filter.auditedOnly && filter.table != u"TabWarehouseTurn" ? "  and  " + prefix + "Auditing <> '' " : QString();
}

QString currencyClause(const BillFilter& filter, const QString& prefix)
{
  const bool isOne = isGiven(filter.moneyName) && !isAllCurrencies(filter.moneyName);
  return isOne ? "  and  " + prefix + "MoneyName = '" + filter.moneyName + "' " : QString();
}

} // namespace

QString BuildBillFilter(const BillFilter& filter)
{
  const QString prefix = filter.table.isEmpty() ? QString() : filter.table + ".";
  QString clauses = attributeClause(filter, prefix);
  for (const TextColumn& column : TextColumns)
    if (const QString& value = filter.*column.value; isGiven(value))
      clauses += "  and  " + prefix + column.name + " = '" + value + "' ";
  return clauses + auditedClause(filter, prefix) + currencyClause(filter, prefix);
}

} // namespace ModFuntion
