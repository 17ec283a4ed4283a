#pragma once

#include "database/Statement.h"

namespace ModFuntion {

// What a query of amounts may be narrowed by. An empty text narrows nothing.
struct BillFilter {
  QString table = {}; // precedes every column if given
  bool auditedOnly = false;
  QString moneyName = {}; // "综合本位币" means all currencies
};

// The name under which amounts of all currencies are taken together, in the base currency.
inline bool isAllCurrencies(QStringView moneyName)
{
  return moneyName == u"综合本位币";
}

// The clauses of a filter, each led by "and", to follow a condition.
Statement BuildBillFilter(const BillFilter& filter);

} // namespace ModFuntion
