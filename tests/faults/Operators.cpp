#include "Faults.h"
#include "PayingOperator.h"
#include "accountset/AccountSet.h"
#include "accountset/Store.h"
#include "support/TestServer.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QTemporaryDir>

#include <algorithm>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace Faults {
namespace {

constexpr int Operators = 8;
constexpr int LinesABill = 2;
const QString Duplicate = QStringLiteral("付款单编号重复，请修改！");

// What an operator was told of one save.
struct Told {
  qint32 number = 0; // of the bill, and part of its amounts: no two bills have an amount in common
  qint32 errors = 0; // statements that were told to have failed
  qint32 duplicates = 0;
  qint32 busy = 0;
};

QList<int> amountsOf(int number)
{
  return {number * 10 + 1, number * 10 + 2};
}

Told saveOne(PayingOperator& paying, int number)
{
  paying.beginBill();
  paying.fillIn(amountsOf(number));
  Told told{.number = number};
  // A number that someone else has taken is told; pressing again draws the next.
  for (QStringList said = {Duplicate}; said.contains(Duplicate) && told.duplicates < 1000;) {
    said = paying.save();
    told.duplicates += said.contains(Duplicate);
    for (const QString& text : said) {
      told.errors += text.startsWith(u"Error:");
      told.busy += text.contains(u"lock") || text.contains(u"busy");
    }
  }
  return told;
}

[[noreturn]] void work(const QString& folder, const SessionParams& params, int who, int saves, int descriptor)
{
  int count = 1;
  char name[] = "faults";
  char* texts[] = {name, nullptr};
  const QCoreApplication application(count, texts);
  PayingOperator paying(folder, params);
  for (int i = 0; i < saves; ++i) {
    const Told told = saveOne(paying, who * saves + i + 1);
    if (write(descriptor, &told, sizeof told) != sizeof told)
      _exit(1);
  }
  _exit(0);
}

// All of them at once; what they were told, by the number of the bill.
QHash<int, Told> workAll(const QString& folder, const SessionParams& params, int saves)
{
  int ends[2];
  if (pipe(ends) != 0)
    qFatal("no pipe");
  for (int who = 0; who < Operators; ++who)
    if (fork() == 0) {
      close(ends[0]);
      work(folder, params, who, saves, ends[1]);
    }
  close(ends[1]);
  QHash<int, Told> all;
  for (Told told; read(ends[0], &told, sizeof told) == sizeof told;)
    all.insert(told.number, told);
  close(ends[0]);
  while (wait(nullptr) > 0) {
  }
  return all;
}

// Rows by amount: a header has the sum of the amounts of its bill.
QHash<int, int> rowsByAmount(Store& store, const QString& table, const QString& column)
{
  QHash<int, int> rows;
  const StatementResult read = store.run(QStringLiteral("select %1, count(*) from %2 group by %1").arg(column, table));
  for (qint64 i = 0; i < read.rows.rows(); ++i)
    rows.insert(int(read.rows.value(i, 0).toNumber()), int(read.rows.value(i, 1).toNumber()));
  return rows;
}

// Each statement of a bill either stands or was told to have failed. `sums` are of what was acknowledged.
struct Account {
  int acknowledged = 0;
  int found = 0;
  int collisions = 0;
};

QString reconcile(const Told& told, const QHash<int, int>& headers, const QHash<int, int>& lines, Account& account)
{
  const QList<int> amounts = amountsOf(told.number);
  int found = headers.value(amounts[0] + amounts[1]);
  for (const int amount : amounts)
    found += lines.value(amount);
  const int acknowledged = 1 + LinesABill - told.errors;
  account.acknowledged += acknowledged;
  account.found += found;
  account.collisions += told.duplicates + told.errors;
  if (told.busy > 0)
    return QStringLiteral("a busy error");
  return found == acknowledged ? QString() : QStringLiteral("%1 rows acknowledged, %2 found").arg(acknowledged).arg(found);
}

void reconcileAll(Store& store, const QHash<int, Told>& all, int bills, Tally& tally)
{
  const QHash<int, int> headers = rowsByAmount(store, QStringLiteral("TabPayfundBill"), QStringLiteral("SumMoney"));
  const QHash<int, int> lines = rowsByAmount(store, QStringLiteral("TabPayfundBillInf"), QStringLiteral("Moneyy"));
  Account account;
  for (int number = 1; number <= bills; ++number)
    tally.add(QStringLiteral("bill %1").arg(number),
              all.contains(number) ? reconcile(all[number], headers, lines, account) : QStringLiteral("its operator died"));
  std::printf("operators: %d bills, %d collisions told, %d rows acknowledged, %d rows found\n", bills, account.collisions,
              account.acknowledged, account.found);
}

void clearPayments(Store& store)
{
  if (const QString reason = store.runAll({QStringLiteral("delete from TabPayfundBill"), QStringLiteral("delete from TabPayfundBillInf")});
      !reason.isEmpty())
    qFatal("%s", qPrintable(reason));
}

void onFile(int saves, Tally& tally)
{
  const QTemporaryDir folder;
  QDir(folder.path()).mkpath(QStringLiteral("Data"));
  const Place place{folder.filePath(QStringLiteral("Data/A001.mdb")), {}};
  AccountSet::create(place.file, AccountSet::Content::Demo);
  clearPayments(*Store::open(place).store);
  const QHash<int, Told> all = workAll(folder.path(), PayingOperator::onFile(), saves);
  reconcileAll(*Store::open(place).store, all, Operators * saves, tally);
}

void onServer(int saves, Tally& tally)
{
  if (!TestServer::administrator())
    qFatal("tools/with-server runs this");
  const QTemporaryDir folder;
  const TestServer::Database database(QStringLiteral("operators_test"), AccountSet::Content::Demo);
  clearPayments(*Store::open(database.administrator).store);
  SessionParams params = PayingOperator::onFile();
  params.DatabaseType = QStringLiteral("SQL");
  params.IsAccessSQL = false;
  params.ConDataName = database.clerk.server.database;
  params.ConServerIP = database.clerk.server.host;
  params.ConPortNum = database.clerk.server.port;
  params.ConDataBaseUID = database.clerk.server.user;
  params.ConDataBasePWD = u'{' + QString(database.clerk.server.password).replace(u'}', QStringLiteral("}}")) + u'}';
  const QHash<int, Told> all = workAll(folder.path(), params, saves);
  reconcileAll(*Store::open(database.administrator).store, all, Operators * saves, tally);
}

} // namespace

void operators(bool isOnServer, bool isLong, Tally& tally)
{
  if (isOnServer)
    onServer(isLong ? 500 : 60, tally);
  else
    onFile(isLong ? 250 : 30, tally);
}

} // namespace Faults
