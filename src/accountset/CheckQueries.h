#pragma once

#include "database/Engine.h"

#include <QList>
#include <QStringList>

#include <array>
#include <initializer_list>
#include <utility>

struct BillKind;

// The queries of the check, by subject. Each returns the rows in which its rule does not hold.
namespace Check {

struct Query {
  QString rule; // in words, with the columns that are shown
  QString sql;
  QString advice;      // what a user does about it
  QStringList repairs; // statements that correct what has one right answer; none for most rules
};

// A rule as it is written: its words and its statements, with names such as "@header" for what differs from one kind
// of bill to the next.
struct Rule {
  QStringView words;
  QStringView sql;
  QStringView advice;
  std::array<QStringView, 2> repairs = {};
};
using NamedValues = std::initializer_list<std::pair<const char*, QString>>;

Query queryOf(const Rule& rule, NamedValues values);

// The tables of the bills that money bills settle.
extern const QStringList GoodsBills;

// Header and lines of the money bills.
QList<Query> billQueries();
// Vouchers, and the bills that they are of. `closed` is the last day of the last closed accounting period, written
// yyyy-MM-dd: up to that day a save leaves the voucher alone.
QList<Query> voucherQueries(const QString& closed);
// Write-off links, and the bills on both sides of them.
QList<Query> settlementQueries();

// Reads `closed` from the account set; a day before all bills if no period is closed.
[[nodiscard]] DatabaseResult<QString> lastClosedDay(Engine& engine);

// `text` with each name such as "@header" replaced by its value.
QString filled(QStringView text, NamedValues values);

// The condition that a header in one of these tables has this code.
QString isBillOf(const QStringList& tables, const QString& code);

// The header tables of the money bills that are `wanted`.
QStringList headerTables(bool (*wanted)(const BillKind& kind));

} // namespace Check
