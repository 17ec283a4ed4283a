#pragma once

#include "accountset/AccountSetLocation.h"
#include "accountset/Store.h"

#include <QList>

// Copies all rows of one account set into another, and verifies the copy.
namespace Copy {

// What one side has in a table.
struct Content {
  qint64 rows = 0;
  QStringList sums; // of the numeric columns, in their order, exact to a millionth

  bool operator==(const Content&) const = default;
};

struct Proof {
  QString table;
  QStringList columns; // the numeric ones
  Content from;
  Content to;
};

// Fills the tables of `to`, which must hold no rows, in one transaction. After an error `to` is as it was.
[[nodiscard]] tl::expected<void, QString> rows(Store& from, Store& to);

// Reads both sides again, one proof per table.
[[nodiscard]] tl::expected<QList<Proof>, QString> prove(Store& from, Store& to);

// Copies an account set into a new file, as it is at one moment: of a file with everything in it, of a server the tables of
// the suite. Never overwrites a file, and leaves none after an error.
[[nodiscard]] tl::expected<void, QString> toFile(const AccountSetLocation& from, const QString& path);

} // namespace Copy
