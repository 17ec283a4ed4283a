#include "Faults.h"
#include "FaultyFiles.h"
#include "RowDigest.h"
#include "ScriptProcess.h"
#include "accountset/Store.h"
#include "database/EmbeddedEngine.h"
#include "support/TestServer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <unistd.h>

namespace Faults {
namespace {

// Together they save every kind of bill, change, void and delete some, and settle and take it back.
constexpr const char* Scripts[] = {"bills/payment-life",        "bills/receipt-life",      "bills/bank-life",
                                   "bills/expense-life",        "bills/other-income-life", "bills/fee-offset-customer",
                                   "bills/fee-offset-supplier", "settlement/write-off",    "settlement/write-off-payment"};

// A digest of all rows of all tables of an account set's file; an error if the file cannot be read or is damaged.
tl::expected<QByteArray, QString> digest(const QString& path)
{
  const auto store = Store::open({path, {}});
  if (!store)
    return tl::unexpected(store.error());
  const auto whole = (*store)->run("pragma integrity_check");
  if (!whole || whole->value(0, 0).toText() != "ok")
    return tl::unexpected(whole ? whole->value(0, 0).toText() : whole.error());
  return RowDigest::of(**store);
}

// The same of the database that a killed script has left on the server, once its connections are gone. It is dropped.
tl::expected<QByteArray, QString> digestOfLeftover()
{
  const auto administrator = *Store::open(*TestServer::administrator());
  const auto left = administrator->run("select datname from pg_database where datname ~ '^script_[0-9]+$'");
  if (!left || left->rows() != 1)
    return tl::unexpected(QString("not one database is left"));
  const QString name = left->value(0, 0).toText();
  const QString connections = "select count(*) from pg_stat_activity where datname='" + name + u'\'';
  while (administrator->run(connections)->value(0, 0).toInteger() > 0)
    QThread::msleep(1);
  QByteArray found = RowDigest::of(**Store::open(*TestServer::administrator(name)));
  std::ignore = administrator->run("drop database " + name + " with (force)");
  return found;
}

// One script, played to its end once and then killed at many places.
class Killing {
public:
  Killing(const QString& scripts, const char* name, bool isOnServer) : m_scripts(scripts), m_name(name), m_isOnServer(isOnServer) {}

  // Keeps the state after each commit of an undisturbed run. Empty if it worked.
  QString playToTheEnd()
  {
    QDir().mkpath(states());
    // The first script of its kind makes the account set that is copied for the others.
    FaultyFiles::follow({});
    if (m_isOnServer)
      play();
    FaultyFiles::follow({.atCommit = [this](int commit) { keepState(commit); }});
    const ScriptProcess::Result result = play();
    m_counts = FaultyFiles::counts();
    for (int i = 1; i <= commits(); ++i)
      m_states.append(m_isOnServer ? keptDigest(i) : digest(state(i)).value_or(QByteArray()));
    return result.outcome == ScriptProcess::Outcome::Passed ? QString() : result.reason;
  }

  // Every commit completes an action, so that a death between two of them leaves nothing half done.
  QString commitsOnlyAtRest() const
  {
    for (int commit = 1; commit <= commits(); ++commit)
      if (!m_counts.isAtRest[commit])
        return QString("commit %1 is in the middle of an action").arg(commit);
    return {};
  }

  int commits() const { return m_counts.commits; }
  int writes() const { return m_counts.writes; }

  QString killAfter(int commit)
  {
    FaultyFiles::follow({.killAtCommit = commit});
    return survives({m_states[commit - 1]});
  }

  // The action that was under way is there as a whole or not at all.
  QString killWithin(int write, bool after)
  {
    const int done = m_counts.commitsBefore[write];
    if (done == 0 || done >= commits())
      return {};
    FaultyFiles::follow({.killAtWrite = write, .killAfterWrite = after});
    return survives({m_states[done - 1], m_states[done]});
  }

private:
  QString states() const { return m_folder.filePath("states"); }
  QString state(int commit) const { return states() + u'/' + QString::number(commit) + ".mdb"; }
  QString program() const { return m_folder.filePath("program"); }
  QString accountSet() const { return program() + "/Data/A001.mdb"; }

  // In the playing process. A file can't be read amid its commit, and is copied.
  void keepState(int commit) const
  {
    if (!m_isOnServer) {
      QFile::copy(accountSet(), state(commit));
      return;
    }
    QFile file(state(commit));
    if (file.open(QIODevice::WriteOnly))
      file.write(RowDigest::of(**Store::open(*TestServer::administrator(QString("script_%1").arg(getpid())))));
  }

  QByteArray keptDigest(int commit) const
  {
    QFile file(state(commit));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  ScriptProcess::Result play()
  {
    QDir(program()).removeRecursively();
    return ScriptProcess::play({.script = m_scripts + u'/' + m_name + ".op",
                                .programFolder = program(),
                                .shelf = m_folder.path(),
                                .server = m_isOnServer ? std::optional(TestServer::administrator()->server) : std::nullopt,
                                .atRest = FaultyFiles::noteRest});
  }

  QString survives(const QList<QByteArray>& allowed)
  {
    const ScriptProcess::Result killed = play();
    if (!killed.reason.contains("Killed"))
      return "was not killed: " + killed.reason;
    FaultyFiles::follow({});
    if (m_isOnServer)
      return digestOfLeftover().map([&allowed](const QByteArray& found) { return verdictOn(found, allowed); }).value_or("no database");
    // Opening it as the program does completes or undoes what was left half done.
    const auto engine = EmbeddedEngine::open(accountSet());
    if (!engine || !(*engine)->execute("select count(*) from TabDotSet"))
      return "does not open";
    const auto found = digest(accountSet());
    if (!found)
      return found.error();
    const QString verdict = verdictOn(*found, allowed);
    return verdict.isEmpty() ? nextStart() : verdict;
  }

  static QString verdictOn(const QByteArray& found, const QList<QByteArray>& allowed)
  {
    return allowed.contains(found) ? "" : "the rows are not those that were committed";
  }

  QString nextStart()
  {
    const ScriptProcess::Result started = ScriptProcess::play(
        {.script = QStringLiteral(FAULTS_FOLDER "/next-start.op"), .programFolder = program(), .shelf = m_folder.path()});
    return started.outcome == ScriptProcess::Outcome::Passed ? QString() : "next start: " + started.reason;
  }

  QString m_scripts;
  QString m_name;
  bool m_isOnServer;
  QTemporaryDir m_folder;
  FaultyFiles::Counts m_counts;
  QList<QByteArray> m_states;
};

} // namespace

void kill(const QString& scripts, bool isOnServer, bool isLong, Tally& tally)
{
  int deaths = 0;
  for (const char* name : Scripts) {
    Killing killing(scripts, name, isOnServer);
    if (const QString reason = killing.playToTheEnd(); !reason.isEmpty()) {
      tally.add(name, reason);
      continue;
    }
    tally.add(name, killing.commitsOnlyAtRest());
    const int commitStep = isLong || !isOnServer ? 1 : std::max(1, killing.commits() / 2);
    for (int commit = commitStep; commit <= killing.commits(); commit += commitStep, ++deaths)
      tally.add(QString("%1 killed after commit %2").arg(name).arg(commit), killing.killAfter(commit));
    const int writeStep = isLong ? 1 : std::max(1, killing.writes() / (isOnServer ? 3 : 12));
    for (int write = writeStep; write <= killing.writes(); write += writeStep)
      for (int after = 0; after <= (isLong && !isOnServer); ++after, ++deaths)
        tally.add(QString("%1 killed %2 write %3").arg(name, after ? "after" : "within").arg(write), killing.killWithin(write, after));
  }
  std::printf("kill: %d deaths, none of them within an action\n", deaths);
}

} // namespace Faults
