#pragma once

#include "accountset/Store.h"

#include <QList>

// All rows of one account set into another, and the proof that they arrived.
namespace Copy {

// What one side holds of a table.
struct Content {
  qint64 rows = 0;
  QStringList sums; // of the columns with numbers, in their order, exact to a millionth

  bool operator==(const Content&) const = default;
};

struct Proof {
  QString table;
  QStringList columns; // those with numbers
  Content from;
  Content to;
};

// Fills the tables of `to`, which must hold no rows, in one transaction. After an error `to` is as it was.
[[nodiscard]] tl::expected<void, QString> rows(Store& from, Store& to);

// Reads both sides again, one proof a table.
[[nodiscard]] tl::expected<QList<Proof>, QString> prove(Store& from, Store& to);

} // namespace Copy
