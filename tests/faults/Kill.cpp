#include "Content.h"
#include "Faults.h"
#include "FaultyFiles.h"
#include "ScriptProcess.h"
#include "accountset/Check.h"
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

// What a death leaves in the midst of an action, and how much of it the check names. At rest it may name what
// the script has brought out of order itself.
struct HalfStates {
  int all = 0;
  int named = 0;
  int atRest = 0;
  int namedAtRest = 0;
};

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
      m_states.append(Content::digest(state(i)).value_or(QByteArray()));
      m_isAtRest.append(FaultyFiles::isAtRest(i));
    }
    return result.outcome == ScriptProcess::Outcome::Passed ? QString() : result.reason;
  }

  // A half state is named by a finding that the state before its action does not have.
  void checkHalfStates(HalfStates& sum) const
  {
    QStringList before;
    for (int commit = 1; commit <= m_commits; ++commit) {
      const QStringList found = findings(state(commit));
      const bool isNamed = std::any_of(found.begin(), found.end(), [&](const QString& finding) { return !before.contains(finding); });
      (m_isAtRest[commit - 1] ? sum.atRest : sum.all) += 1;
      (m_isAtRest[commit - 1] ? sum.namedAtRest : sum.named) += isNamed;
      if (m_isAtRest[commit - 1])
        before = found;
    }
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
  static QStringList findings(const QString& file)
  {
    QStringList lines;
    const auto checked = Check::run({file, {}}, [&lines](const Check::Finding& finding) {
      for (const QString& row : finding.rows)
        lines.append(finding.what + row);
    });
    return checked ? lines : QStringList(checked.error());
  }

  QString states() const { return m_folder.filePath(QStringLiteral("states")); }
  QString state(int commit) const { return states() + u'/' + QString::number(commit) + ".mdb"; }
  QString program() const { return m_folder.filePath(QStringLiteral("program")); }
  QString accountSet() const { return program() + QStringLiteral("/Data/A001.mdb"); }

  ScriptProcess::Result play()
  {
    QDir(program()).removeRecursively();
    return ScriptProcess::play({.script = m_scripts + u'/' + m_name + ".op",
                                .programFolder = program(),
                                .shelf = m_folder.path(),
                                .atRest = FaultyFiles::noteRest});
  }

  QString survives(const QList<QByteArray>& allowed)
  {
    const ScriptProcess::Result killed = play();
    if (!killed.reason.contains(QStringLiteral("Killed")))
      return QStringLiteral("was not killed: ") + killed.reason;
    FaultyFiles::follow({});
    // The program's own way of opening mends what was left half done.
    const auto engine = EmbeddedEngine::open(accountSet());
    if (!engine || !(*engine)->execute(QStringLiteral("select count(*) from TabDotSet")))
      return QStringLiteral("does not open");
    const auto found = Content::digest(accountSet());
    if (!found)
      return found.error();
    if (!allowed.contains(*found))
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
  QList<bool> m_isAtRest;
};

} // namespace

void kill(const QString& scripts, bool isLong, Tally& tally)
{
  int deaths = 0;
  HalfStates half;
  for (const char* name : Scripts) {
    Killing killing(scripts, name);
    if (const QString reason = killing.playToTheEnd(); !reason.isEmpty()) {
      tally.add(QLatin1String(name), reason);
      continue;
    }
    killing.checkHalfStates(half);
    for (int commit = 1; commit <= killing.commits(); ++commit, ++deaths)
      tally.add(QStringLiteral("%1 killed behind commit %2").arg(QLatin1String(name)).arg(commit), killing.killBehind(commit));
    const int step = isLong ? 1 : std::max(1, killing.writes() / 12);
    for (int write = step; write <= killing.writes(); write += step, ++deaths)
      tally.add(QStringLiteral("%1 killed within write %2").arg(QLatin1String(name)).arg(write), killing.killWithin(write));
  }
  // The rest are harmless or look like sound ones: the first bill of its kind that waits for its voucher.
  tally.add(QStringLiteral("the check of half states"),
            half.named * 10 >= half.all * 9 ? QString() : QStringLiteral("names %1 of %2").arg(half.named).arg(half.all));
  std::printf("kill: %d deaths; of %d states half done the check names %d, of %d states at rest %d\n", deaths, half.all, half.named,
              half.atRest, half.namedAtRest);
}

} // namespace Faults
