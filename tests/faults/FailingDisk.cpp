#include "AccountSetOfTests.h"
#include "Faults.h"
#include "FaultyFiles.h"
#include "PaymentWriter.h"

#include <sqlite3.h>

namespace Faults {
namespace {

using FaultyFiles::counts;

// A fresh sample firm, and a program that saves payments in it.
class Firm {
public:
  // Empty if a payment was saved without a box.
  QString save()
  {
    const auto outcome = m_writer.save(Amounts);
    return outcome.isWritten && outcome.boxes.isEmpty() ? QString() : outcome.boxes.join(" / ") + '.';
  }

  // The error is the only box, nothing of the bill is stored; and once the disk works again, the same process saves.
  QString saveUnder(const FaultyFiles::Plan& plan)
  {
    const QString before = rows();
    FaultyFiles::follow(plan);
    const auto outcome = m_writer.save(Amounts);
    injected += counts().failures;
    FaultyFiles::follow({});
    if (outcome.isWritten || outcome.boxes.size() != 1 || !outcome.boxes.first().startsWith("Error:"))
      return "the boxes were: " + outcome.boxes.join(" / ");
    if (rows() != before)
      return "a part of the bill is stored";
    if (const QString next = save(); !next.isEmpty())
      return "the next save reported: " + next;
    return contents();
  }

  static inline int injected = 0;

private:
  // How many rows the tables of a save hold.
  QString rows() const
  {
    QStringList counts;
    for (const char* table : {"TabPayfundBill", "TabPayfundBillInf", "TabWarrant", "TabWarrantInf", "TabWriteAccountant"})
      counts.append(m_set.openStore()->run(QString("select count(*) from ") + table)->value(0, 0).toText());
    return counts.join(' ');
  }

  QString contents() const
  {
    const auto store = m_set.openStore();
    if (const QString found = store->run("pragma integrity_check")->value(0, 0).toText(); found != "ok")
      return found;
    // The bill that was saved last has the highest code.
    const auto sum = store->run("select sum(Moneyy) from TabPayfundBillInf where BillCode=(select max(Code) from TabPayfundBill)");
    return sum->value(0, 0).toNumber() == 600 ? "" : "the bill that was saved last is missing";
  }

  static inline const QList<int> Amounts = {100, 200, 300};
  const AccountSetOfTests m_set{false};
  PaymentWriter m_writer{m_set.folder(), m_set.params()};
};

// The places at which a save writes or syncs.
int writesOfASave(Tally& tally)
{
  Firm firm;
  FaultyFiles::follow({});
  if (!firm.save().isEmpty())
    qFatal("the payment was not saved");
  const QString lost = QString("a power cut could undo %1 of its %2 commits").arg(counts().unsyncedCommits).arg(counts().commits);
  tally.add("a save that was acknowledged", counts().unsyncedCommits == 0 ? "" : lost);
  // The journal twice, its folder, the file, and the folder again once the journal is deleted.
  constexpr int MostSyncs = 5;
  tally.add("the syncs of a save", counts().syncs <= MostSyncs ? "" : QString("%1, at most %2").arg(counts().syncs).arg(MostSyncs));
  std::printf("disk: a save writes %d times, %d of them syncs\n", counts().writes, counts().syncs);
  return counts().writes;
}

} // namespace

void failingDisk(Tally& tally)
{
  const int writes = writesOfASave(tally);
  for (int write = 1; write <= writes; ++write) {
    tally.add(QString("I/O error at write %1").arg(write), Firm().saveUnder({.failAtWrite = write, .failure = SQLITE_IOERR_WRITE}));
    tally.add(QString("disk full from write %1").arg(write),
              Firm().saveUnder({.failAtWrite = write, .failure = SQLITE_FULL, .failsOn = true}));
  }
  std::printf("disk: %d errors injected\n", Firm::injected);
}

} // namespace Faults
