#include "Content.h"
#include "Faults.h"
#include "FaultyFiles.h"
#include "ScriptProcess.h"
#include "database/EmbeddedEngine.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

namespace Faults {
namespace {

// Together they save, change, void and delete every kind of bill, and settle and take it back.
constexpr const char* Scripts[] = {"bills/payment-life",        "bills/receipt-life",      "bills/bank-life",
                                   "bills/expense-life",        "bills/other-income-life", "bills/fee-offset-customer",
                                   "bills/fee-offset-supplier", "settlement/write-off",    "settlement/write-off-payment"};

// One script, played to its end once and then killed at many places.
class Killing {
public:
  Killing(const QString& scripts, const char* name) : m_scripts(scripts), m_name(QLatin1String(name)) {}

  // What stands behind each commit, from a run that nothing happens to. Empty if it worked.
  QString playToTheEnd()
  {
    QDir().mkpath(states());
    FaultyFiles::follow({.keepStates = states()});
    const ScriptProcess::Result result = play();
    m_commits = FaultyFiles::commits();
    m_writes = FaultyFiles::writes();
    for (int i = 1; i <= m_writes; ++i)
      m_commitsAheadOf.append(FaultyFiles::commitsAheadOf(i));
    for (int i = 1; i <= m_commits; ++i) {
      QString reason;
      m_states.append(Content::digest(states() + u'/' + QString::number(i) + ".mdb", reason));
    }
    return result.outcome == ScriptProcess::Outcome::Passed ? QString() : result.reason;
  }

  int commits() const { return m_commits; }
  int writes() const { return m_writes; }

  QString killBehind(int commit)
  {
    FaultyFiles::follow({.killAtCommit = commit});
    return survives({m_states[commit - 1]});
  }

  // The statement that was under way is there as a whole or not at all.
  QString killWithin(int write)
  {
    const int done = m_commitsAheadOf[write - 1];
    if (done == 0 || done >= m_commits)
      return {};
    FaultyFiles::follow({.killAtWrite = write});
    return survives({m_states[done - 1], m_states[done]});
  }

private:
  QString states() const { return m_folder.filePath(QStringLiteral("states")); }
  QString program() const { return m_folder.filePath(QStringLiteral("program")); }
  QString accountSet() const { return program() + QStringLiteral("/Data/A001.mdb"); }

  ScriptProcess::Result play()
  {
    QDir(program()).removeRecursively();
    return ScriptProcess::play({.script = m_scripts + u'/' + m_name + ".op", .programFolder = program(), .shelf = m_folder.path()});
  }

  QString survives(const QList<QByteArray>& allowed)
  {
    const ScriptProcess::Result killed = play();
    if (!killed.reason.contains(QStringLiteral("Killed")))
      return QStringLiteral("was not killed: ") + killed.reason;
    FaultyFiles::follow({});
    // The program's own way of opening mends what was left half done.
    const auto opening = EmbeddedEngine::open(accountSet());
    if (!opening.engine || opening.engine->execute(QStringLiteral("select count(*) from TabDotSet")).error)
      return QStringLiteral("does not open");
    QString reason;
    const QByteArray found = Content::digest(accountSet(), reason);
    if (found.isEmpty())
      return reason;
    if (!allowed.contains(found))
      return QStringLiteral("the rows are not those that were committed");
    return nextStart();
  }

  QString nextStart()
  {
    const ScriptProcess::Result started = ScriptProcess::play(
        {.script = QStringLiteral(FAULTS_FOLDER "/next-start.op"), .programFolder = program(), .shelf = m_folder.path()});
    return started.outcome == ScriptProcess::Outcome::Passed ? QString() : QStringLiteral("next start: ") + started.reason;
  }

  QString m_scripts;
  QString m_name;
  QTemporaryDir m_folder;
  int m_commits = 0;
  int m_writes = 0;
  QList<int> m_commitsAheadOf;
  QList<QByteArray> m_states;
};

} // namespace

void kill(const QString& scripts, bool isLong, Tally& tally)
{
  int deaths = 0;
  for (const char* name : Scripts) {
    Killing killing(scripts, name);
    if (const QString reason = killing.playToTheEnd(); !reason.isEmpty()) {
      tally.add(QLatin1String(name), reason);
      continue;
    }
    for (int commit = 1; commit <= killing.commits(); ++commit, ++deaths)
      tally.add(QStringLiteral("%1 killed behind commit %2").arg(QLatin1String(name)).arg(commit), killing.killBehind(commit));
    const int step = isLong ? 1 : std::max(1, killing.writes() / 12);
    for (int write = step; write <= killing.writes(); write += step, ++deaths)
      tally.add(QStringLiteral("%1 killed within write %2").arg(QLatin1String(name)).arg(write), killing.killWithin(write));
  }
  std::printf("kill: %d deaths\n", deaths);
}

} // namespace Faults
