#pragma once

#include "accountset/Store.h"

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

// Fills the tables of `to`, which must hold no rows, in one transaction. Empty if it worked; otherwise
// why not, and `to` is as it was.
QString rows(Store& from, Store& to);

// Reads both sides anew and sets them side by side; `reason` tells why it could not.
QList<Proof> prove(Store& from, Store& to, QString& reason);

} // namespace Copy
