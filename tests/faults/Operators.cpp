#include "AccountSetOfTests.h"
#include "Faults.h"
#include "PaymentWriter.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>

#include <algorithm>
#include <sys/wait.h>
#include <unistd.h>

namespace Faults {
namespace {

constexpr int Users = 8;

// What a user saw while saving one bill.
struct Seen {
  qint32 number = 0;     // of the bill, and part of its amounts: no two bills have an amount in common
  qint32 errors = 0;     // "Error:" boxes: a number of a bill or a voucher that another user took first
  qint32 duplicates = 0; // refusals of a bill's number; the save was repeated
  qint32 busy = 0;
};

QList<int> amountsOf(int number)
{
  return {number * 10 + 1, number * 10 + 2};
}

Seen saveOne(PaymentWriter& writer, int number)
{
  Seen seen{.number = number};
  // A number that someone else has taken is refused; saving again draws the next.
  for (bool isWritten = false; !isWritten && seen.duplicates < 1000;) {
    const auto outcome = writer.save(amountsOf(number));
    isWritten = outcome.isWritten;
    seen.duplicates += !isWritten;
    for (const QString& text : outcome.boxes) {
      seen.errors += text.startsWith(u"Error:");
      seen.busy += text.contains(u"lock") || text.contains(u"busy");
    }
  }
  return seen;
}

[[noreturn]] void work(const QString& folder, const SessionParams& params, int who, int saves, int descriptor)
{
  int count = 1;
  char name[] = "faults";
  char* texts[] = {name, nullptr};
  const QCoreApplication application(count, texts);
  PaymentWriter writer(folder, params);
  for (int i = 0; i < saves; ++i) {
    const Seen seen = saveOne(writer, who * saves + i + 1);
    if (write(descriptor, &seen, sizeof seen) != sizeof seen)
      _exit(1);
  }
  _exit(0);
}

// All of them at once; what they saw, by the number of the bill.
QHash<int, Seen> workAll(const QString& folder, const SessionParams& params, int saves)
{
  int ends[2];
  if (pipe(ends) != 0)
    qFatal("no pipe");
  for (int who = 0; who < Users; ++who)
    if (fork() == 0) {
      close(ends[0]);
      work(folder, params, who, saves, ends[1]);
    }
  close(ends[1]);
  QHash<int, Seen> all;
  for (Seen seen; read(ends[0], &seen, sizeof seen) == sizeof seen;)
    all.insert(seen.number, seen);
  close(ends[0]);
  while (wait(nullptr) > 0) {
  }
  return all;
}

// What each bill has to have, by the sum of its amounts: its header, its two lines, a voucher of its own and the three
// lines of that, with the bill's code in their text and its sum on both sides.
QHash<int, int> wholeBills(Store& store)
{
  const auto read = store.run("select h.SumMoney from TabPayfundBill h, TabWarrant v where v.JXCBillCode=h.Code and v.SumDebtor=h.SumMoney"
                              " and (select count(*) from TabPayfundBillInf i where i.BillCode=h.Code)=2"
                              " and (select sum(Moneyy) from TabPayfundBillInf i where i.BillCode=h.Code)=h.SumMoney"
                              " and (select count(*) from TabWarrantInf w where w.BillCode=v.Code and w.Summary like '%'||h.Code||'%')=3"
                              " and (select count(*) from TabWarrantInf w where w.BillCode=v.Code)=3"
                              " and (select sum(Debtor) from TabWarrantInf w where w.BillCode=v.Code)=h.SumMoney"
                              " and (select sum(Lender) from TabWarrantInf w where w.BillCode=v.Code)=h.SumMoney");
  if (!read)
    qFatal("%s", qPrintable(read.error()));
  QHash<int, int> bySum;
  for (qint64 i = 0; i < read->rows(); ++i)
    ++bySum[int(read->value(i, 0).toNumber())];
  return bySum;
}

void reconcileAll(Store& store, const QHash<int, Seen>& all, int bills, Tally& tally)
{
  const QHash<int, int> whole = wholeBills(store);
  int collisions = 0;
  int found = 0;
  for (int number = 1; number <= bills; ++number) {
    const Seen seen = all.value(number);
    const QList<int> amounts = amountsOf(number);
    const int times = whole.value(amounts[0] + amounts[1]);
    collisions += seen.duplicates + seen.errors;
    found += times;
    tally.add(QString("bill %1").arg(number), !all.contains(number) ? "its user died"
                                              : seen.busy > 0       ? "a busy error"
                                              : times != 1          ? QString("%1 whole bills found").arg(times)
                                                                    : QString());
  }
  std::printf("operators: %d bills saved with their vouchers, %d collisions shown, %d whole bills found\n", bills, collisions, found);
}

void clearPayments(Store& store)
{
  if (const auto done = store.runAll(
          {"delete from TabPayfundBill", "delete from TabPayfundBillInf", "delete from TabWarrant", "delete from TabWarrantInf"});
      !done)
    qFatal("%s", qPrintable(done.error()));
}

} // namespace

void operators(bool isOnServer, bool isLong, Tally& tally)
{
  const AccountSetOfTests set(isOnServer, "operators_test");
  clearPayments(*set.openStore());
  const int saves = isOnServer ? (isLong ? 500 : 60) : (isLong ? 250 : 30);
  QElapsedTimer time;
  time.start();
  const QHash<int, Seen> all = workAll(set.folder(), set.params(), saves);
  std::printf("operators: %.1f s for %d saves by %d users\n", double(time.elapsed()) / 1000, Users * saves, Users);
  reconcileAll(*set.openStore(), all, Users * saves, tally);
}

} // namespace Faults
