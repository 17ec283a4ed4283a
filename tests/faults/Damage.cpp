#include "Faults.h"
#include "accountset/AccountSet.h"
#include "database/EmbeddedEngine.h"
#include "samplefirm/SampleFirm.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

namespace Faults {
namespace {

using Random = std::mt19937;

constexpr int PatienceSeconds = 20;

int below(Random& random, qsizetype end)
{
  return int(std::uniform_int_distribution<qsizetype>(0, end - 1)(random));
}

// Bytes changed, a piece overwritten, cut off, or doubled; most keep the start of the header, so that the file is opened
// at all.
QByteArray damaged(QByteArray bytes, Random& random)
{
  const qsizetype from = below(random, 8) == 0 ? 0 : 16;
  for (int i = below(random, 20); i >= 0; --i)
    bytes[from + below(random, bytes.size() - from)] = char(below(random, 256));
  switch (below(random, 6)) {
  case 0: bytes.truncate(below(random, bytes.size())); break;
  case 1: bytes.replace(from + below(random, bytes.size() - from - 512), 512, QByteArray(512, char(below(random, 256)))); break;
  case 2: std::fill_n(bytes.begin() + 100, below(random, 4000), char(below(random, 256))); break;
  case 3: bytes.append(bytes.first(below(random, bytes.size()))); break;
  default: break;
  }
  return bytes;
}

// The statements of a start, a list and a save. Whether they fail does not matter, only that they end.
void work(const QString& path)
{
  const auto engine = EmbeddedEngine::open(path, std::chrono::milliseconds(50));
  if (!engine)
    return;
  for (const char* sql : {"select * from TabDotSet", "select max(Code) as C from TabPayfundBill where Code like 'FKD%'",
                          "select Code from TabPayfundBill where Datee>=#2022-04-01# and Datee<=#2022-06-30# order by Datee, Code",
                          "select a.Code, b.Moneyy from TabPayfundBill a, TabPayfundBillInf b where a.Code=b.BillCode order by b.Moneyy",
                          "select sum(Debtor) as D from TabWarrantInf group by AccountantCode", "select * from TabClient order by Name",
                          "insert into TabPayfundBill(Code,Datee) values('FKD999','2022-06-08')",
                          "delete from TabWarrantInf where LineNum=1", "update TabOutBill set HXMoney=1"})
    std::ignore = (*engine)->execute(sql);
}

// In a process of its own, which must end by itself.
QString survives(const QString& path)
{
  const pid_t child = fork();
  if (child == 0) {
    alarm(PatienceSeconds);
    work(path);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFSIGNALED(status))
    return WTERMSIG(status) == SIGALRM ? "hung" : QString("crashed with signal %1").arg(WTERMSIG(status));
  return WEXITSTATUS(status) == 0 ? QString() : QString("ended with status %1").arg(WEXITSTATUS(status));
}

} // namespace

void damage(bool isLong, Tally& tally)
{
  const QTemporaryDir folder;
  const QString path = folder.filePath("set.mdb");
  QFile file(path);
  if (!AccountSet::create(path, SampleFirm::write) || !file.open(QIODevice::ReadOnly))
    qFatal("no sample");
  const QByteArray whole = file.readAll();
  file.close();
  const int mutations = isLong ? 10'000 : 2'000;
  for (int seed = 1; seed <= mutations; ++seed) {
    Random random{std::mt19937::result_type(seed)};
    QFile::remove(path + "-journal");
    if (!file.open(QIODevice::WriteOnly) || file.write(damaged(whole, random)) < 0)
      qFatal("cannot write");
    file.close();
    tally.add(QString("mutation %1").arg(seed), survives(path));
  }
  std::printf("damage: %d mutations\n", mutations);
}

} // namespace Faults
