#pragma once

#include "database/Statement.h"

namespace ModFuntion {

// What a stock or money query may be narrowed by. A blank text narrows nothing.
struct BillFilter {
  QString table = {}; // leads every column if given
  QString AttributeCode = {};
  // True: also what lies below the attribute. The system calls it the exact match all the same.
  bool exactAttribute = false;
  QString WareSpec = {};
  QString Manufacturer = {};
  QString Brand = {};
  QString PCode = {};
  bool auditedOnly = false; // a stock closing has no auditor and is never narrowed by it
  QString moneyName = {};   // "综合本位币" means all currencies
};

// The name under which amounts of all currencies are taken together, in the base currency.
inline bool isAllCurrencies(QStringView moneyName)
{
  return moneyName == u"综合本位币";
}

// The clauses of a filter, each led by "and", to follow a condition.
Statement BuildBillFilter(const BillFilter& filter);

} // namespace ModFuntion
