#pragma once

#include "database/Statement.h"

// The queries by which the write-off screen lists goods bills. Each returns the columns of the list in their order,
// from the bill's code on.
namespace WriteOffQuery {

// The goods bills of a table that meet all conditions; no amount is allocated yet.
Statement openBills(const QString& table, const QList<Statement>& conditions);

// Non-empty if the money bill has been allocated before.
Statement linksOf(const QString& SFKBillCode);

// The goods bills to which a money bill has been allocated, with its amounts. No conditions apply.
Statement ownLinks(const QString& table, const QString& SFKBillCode);

// All links of the goods bills that meet the conditions, one row each; of one money bill alone if `onlyOf` is given,
// even if the code is empty.
Statement allLinks(const QString& table, const QList<Statement>& conditions, const QString* onlyOf);

} // namespace WriteOffQuery
