#pragma once

#include "accountset/AccountSetLocation.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <memory>

// The account set of a script: a file in its program folder, or a database of its own on a server.
class ScriptAccountSet {
public:
  enum class Content { Empty, Demo };

  // Finished files are cached in `cacheFolder` for the scripts that follow.
  static std::unique_ptr<ScriptAccountSet> inFile(const QString& programFolder, const QString& cacheFolder);
  // `administrator` may create databases there. One database of each content is made and copied for each script.
  static std::unique_ptr<ScriptAccountSet> onServer(const ServerAddress& administrator);

  explicit ScriptAccountSet(const AccountSetLocation& location) : m_location(location) {}
  virtual ~ScriptAccountSet() = default;

  virtual bool exists() const = 0;
  // Replaces an existing one.
  virtual void make(Content content) = 0;
  // The keys of the parameter file that describe it.
  virtual QHash<QString, QString> sessionKeys() const = 0;

  // Runs one statement of the account set's own engine, beside the program and with all rights. Returns the rows as texts, NULL as
  // "NULL" and numbers in their shortest form. A Failure with the engine's text.
  QList<QStringList> run(const QString& sql) const;

protected:
  const AccountSetLocation m_location;
};
