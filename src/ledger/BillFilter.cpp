#include "ledger/BillFilter.h"

#include "platform/Trim.h"

namespace ModFuntion {
namespace {

// A column, qualified with the filter's table if it has one.
Statement columnOf(const BillFilter& filter, const char* column)
{
  return filter.table.isEmpty() ? Statement(u"{}", SqlName(column)) : Statement(u"{}.{}", SqlName(filter.table), SqlName(column));
}

Statement auditedClause(const BillFilter& filter)
{
  if (!filter.auditedOnly)
    return {};
  return {u"  and  {} <> '' ", columnOf(filter, "Auditing")};
}

Statement currencyClause(const BillFilter& filter)
{
  if (Trim(filter.moneyName).isEmpty() || isAllCurrencies(filter.moneyName))
    return {};
  return {u"  and  {} = '{}' ", columnOf(filter, "MoneyName"), filter.moneyName};
}

} // namespace

Statement BuildBillFilter(const BillFilter& filter)
{
  return auditedClause(filter) + currencyClause(filter);
}

} // namespace ModFuntion
