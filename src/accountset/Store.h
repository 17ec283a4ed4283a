#pragma once

#include "accountset/AccountSetLocation.h"
#include "accountset/Schema.h"
#include "database/Engine.h"

#include <QStringList>
#include <memory>

// An account set opened by those who make, fill and copy it: a file or a server database, with none of the
// program's guards. What is run is in the engine's own SQL.
class Store {
public:
  struct Opening {
    std::unique_ptr<Store> store; // null if it could not be opened
    QString reason;
  };
  // A file must exist.
  static Opening open(const AccountSetLocation& location);
  // The account set as it is at one moment, to be read: what operators write later is not in it, and they
  // need not wait for its reader.
  static Opening openMoment(const AccountSetLocation& location);

  virtual ~Store() = default;

  virtual StatementResult run(const QString& sql) = 0;
  // Runs them one by one until one fails; empty if none did.
  QString runAll(const QStringList& statements);

  // The words in which the engines differ: a binary column as hexadecimal text and back, and the sum of a
  // column of numbers in millionths, as text, exactly.
  virtual QString hexOf(const QString& column) const = 0;
  virtual QString binaryLiteral(const QString& hex) const = 0;
  virtual QString sumOf(const QString& column) const = 0;
};
