#pragma once

#include "database/Statement.h"

namespace ModFuntion {

// The conditions of a query of amounts. An empty text means no condition.
struct BillFilter {
  QString table = {}; // precedes every column if given
  bool auditedOnly = false;
  QString moneyName = {}; // "综合本位币" means all currencies
};

// The name that means all currencies together, in the base currency.
inline bool isAllCurrencies(QStringView moneyName)
{
  return moneyName == u"综合本位币";
}

// The clauses of a filter, each beginning with "and", to follow a condition.
Statement BuildBillFilter(const BillFilter& filter);

} // namespace ModFuntion
