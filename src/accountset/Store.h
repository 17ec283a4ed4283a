#pragma once

#include "accountset/AccountSetLocation.h"
#include "database/RowSet.h"

#include <QStringList>

#include <tl/expected.hpp>

#include <memory>

// An account set opened to create, fill or copy it: a file or a server database, without the program's guards.
// Statements are in the engine's own SQL. The error is the engine's text.
class Store {
public:
  using Opened = tl::expected<std::unique_ptr<Store>, QString>;

  // A file must exist.
  [[nodiscard]] static Opened open(const AccountSetLocation& location);
  // A read-only snapshot of the account set: later writes are not in it, and their writers need not wait for its
  // reader.
  [[nodiscard]] static Opened openMoment(const AccountSetLocation& location);

  // Copies a file with everything in it, as it is at one moment; operators may go on working. Never overwrites a file, and
  // leaves none after an error.
  [[nodiscard]] static tl::expected<void, QString> copyFile(const QString& from, const QString& to);

  virtual ~Store() = default;

  [[nodiscard]] virtual tl::expected<RowSet, QString> run(const QString& sql) = 0;
  // Runs them one by one until one fails.
  [[nodiscard]] tl::expected<void, QString> runAll(const QStringList& statements);

  // The expressions in which the engines differ: a binary column as hexadecimal text and back, and the exact sum of a
  // numeric column in millionths, as text.
  virtual QString hexOf(const QString& column) const = 0;
  virtual QString binaryLiteral(const QString& hex) const = 0;
  virtual QString sumOf(const QString& column) const = 0;
};
