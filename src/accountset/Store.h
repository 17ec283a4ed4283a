#pragma once

#include "accountset/AccountSetLocation.h"
#include "database/RowSet.h"

#include <QStringList>

#include <tl/expected.hpp>

#include <memory>

// An account set opened by those who make, fill and copy it: a file or a server database, with none of the
// program's guards. What is run is in the engine's own SQL. The error is the engine's words.
class Store {
public:
  using Opened = tl::expected<std::unique_ptr<Store>, QString>;

  // A file must exist.
  [[nodiscard]] static Opened open(const AccountSetLocation& location);
  // The account set as it is at one moment, to be read: what operators write later is not in it, and they
  // need not wait for its reader.
  [[nodiscard]] static Opened openMoment(const AccountSetLocation& location);

  virtual ~Store() = default;

  [[nodiscard]] virtual tl::expected<RowSet, QString> run(const QString& sql) = 0;
  // Runs them one by one until one fails.
  [[nodiscard]] tl::expected<void, QString> runAll(const QStringList& statements);

  // The words in which the engines differ: a binary column as hexadecimal text and back, and the sum of a
  // column of numbers in millionths, as text, exactly.
  virtual QString hexOf(const QString& column) const = 0;
  virtual QString binaryLiteral(const QString& hex) const = 0;
  virtual QString sumOf(const QString& column) const = 0;
};
