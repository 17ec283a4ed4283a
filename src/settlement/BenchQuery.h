#pragma once

#include <QStringList>

// The statements by which the write-off bench lists goods bills. Each gives the columns of the list in
// their order, from the bill's code on.
namespace BenchQuery {

// The goods bills of a table that meet all conditions; no amount is allocated yet.
QString openBills(const QString& table, const QStringList& conditions);

// Any row tells that the money bill has been allocated before.
QString linksOf(const QString& SFKBillCode);

// The goods bills to which a money bill has been allocated, with its amounts. Nothing narrows them.
QString ownLinks(const QString& table, const QString& SFKBillCode);

// All links of the goods bills that meet the conditions, one row each; of one money bill alone if
// `onlyOf` is given, a blank code included.
QString allLinks(const QString& table, const QStringList& conditions, const QString* onlyOf);

} // namespace BenchQuery
