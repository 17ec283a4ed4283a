#pragma once

#include "ScriptAccountSet.h"
#include "support/FixedMachine.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <memory>

// What the program finds around it: a program folder of the script's own, the account set, the machine's clock, the values of the
// parameter file, and the other programs of the suite.
class Environment {
public:
  // A program of the suite that was started, with the directives in the parameter file that it found.
  struct StartedProgram {
    QString name;
    QStringList directives; // always five
  };

  // The folder is new and empty.
  Environment(const QString& folder, std::unique_ptr<ScriptAccountSet> accountSet);
  ~Environment();

  Machine& machine();
  // A file of the program folder; "\" separates folders as "/" does.
  QString file(const QString& name) const;

  // Replaces the account set. An empty one is made at first use if none was asked for.
  void makeAccountSet(ScriptAccountSet::Content content) { m_accountSet->make(content); }
  QList<QStringList> runSql(const QString& sql);

  void setClock(const QDateTime& now);
  // One key of the parameter file; a Failure if there is no such key.
  void setSession(const QString& key, const QString& value);
  void placeSiblings(const QStringList& names);

  // Writes the parameter file with these directives; the ones left out are empty.
  void writeParameters(const QStringList& directives);
  void removeParameters();

  // The programs started and not yet checked, oldest first.
  QList<StartedProgram>& started();

private:
  class RecordingMachine;

  void requireAccountSet();

  QString m_folder;
  std::unique_ptr<ScriptAccountSet> m_accountSet;
  std::unique_ptr<RecordingMachine> m_machine;
  QHash<QString, QString> m_session;
};
