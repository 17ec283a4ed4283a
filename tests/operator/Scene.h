#pragma once

#include "AccountSetGround.h"
#include "support/FixedMachine.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <memory>

// What surrounds the program while a script is played: a program folder of its own, an account set
// in it, the machine's clock, what the parameter file will say, and the programs beside this one.
class Scene {
public:
  // A sibling that the program has started, with the orders in the parameter file that it found.
  struct StartedProgram {
    QString name;
    QStringList directives; // always five
  };

  // The folder is new and empty.
  Scene(const QString& folder, std::unique_ptr<AccountSetGround> ground);
  ~Scene();

  Machine& machine();
  QString folder() const { return m_folder; }
  // A file of the program folder; "\" parts folders as "/" does.
  QString file(const QString& name) const;

  // Makes the account set anew. One with no rows is made at first use if none was asked for.
  void makeAccountSet(AccountSetGround::Content content);
  // One statement on the account set beside the program.
  QList<QStringList> runSql(const QString& sql);

  void setClock(const QDateTime& now);
  // One key of the parameter file; Unmet if there is no such key.
  void setSession(const QString& key, const QString& value);
  void placeSiblings(const QStringList& names);

  // Writes the parameter file with these orders; empty places for those that are left out.
  void writeParameters(const QStringList& directives);
  void removeParameters();

  // The siblings started and not yet asked for, oldest first.
  QList<StartedProgram>& started();

private:
  class RecordingMachine;

  QString valueOf(const QString& key, const QStringList& directives) const;

  QString m_folder;
  std::unique_ptr<AccountSetGround> m_ground;
  std::unique_ptr<RecordingMachine> m_machine;
  QHash<QString, QString> m_session;
};
