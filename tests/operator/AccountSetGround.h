#pragma once

#include "accountset/AccountSet.h"
#include "database/ServerAddress.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <memory>
#include <optional>

class Store;

// Where a script's account set stands: in a file of its program folder, or in a database of its own on
// a server.
class AccountSetGround {
public:
  enum class Content { Empty, Demo };

  static std::unique_ptr<AccountSetGround> onFile(const QString& programFolder, const QString& shelf);
  // `administrator` may make databases there.
  static std::unique_ptr<AccountSetGround> onServer(const ServerAddress& administrator);

  virtual ~AccountSetGround() = default;

  virtual bool stands() const = 0;
  // Makes it, in place of the one that stands.
  virtual void make(Content content) = 0;
  // One statement of the account set's own engine, run beside the program with every right. Rows come as
  // texts, NULL as "NULL" and numbers in their shortest form. Unmet with the engine's words if it fails.
  virtual QList<QStringList> run(const QString& sql) = 0;
  // What the parameter file says of it.
  virtual QHash<QString, QString> sessionKeys() const = 0;

  // Reads user:password@host:port.
  static std::optional<ServerAddress> readServer(const QString& text);

protected:
  static AccountSet::Fill fillOf(Content content);
  // `run` on an open account set.
  static QList<QStringList> rowsOf(Store& store, const QString& sql);
};
