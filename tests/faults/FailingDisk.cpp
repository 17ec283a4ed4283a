#include "AccountSetOfTests.h"
#include "Faults.h"
#include "FaultyFiles.h"
#include "PaymentWriter.h"

#include <QRegularExpression>

#include <sqlite3.h>
#include <tuple>

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

  // There is one box for each statement that failed; and once the disk works again, the same process saves.
  QString saveUnder(const FaultyFiles::Plan& plan)
  {
    FaultyFiles::follow(plan);
    const QStringList boxes = m_writer.save(Amounts).boxes;
    const auto errors = boxes.filter(QRegularExpression("^Error:")).size();
    if (errors == 0 || errors != counts().failedStatements)
      return QString("%1 statements failed, %2 boxes came: %3").arg(counts().failedStatements).arg(errors).arg(boxes.join(" / "));
    injected += counts().failures;
    FaultyFiles::follow({});
    // A header that failed leaves its lines, and the next bill draws its number.
    std::ignore = m_set.openStore()->run("delete from TabPayfundBillInf where BillCode not in (select Code from TabPayfundBill)");
    if (const QString next = save(); !next.isEmpty())
      return "the next save reported: " + next;
    return contents();
  }

  static inline int injected = 0;

private:
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
  PaymentWriter m_writer{m_set.folder(), [this] {
                           SessionParams params = m_set.params();
                           params.IsJXC = true;
                           return params;
                         }()};
};

// The places at which a save writes or syncs.
int writesOfASave(Tally& tally)
{
  Firm firm;
  FaultyFiles::follow({});
  if (!firm.save().isEmpty())
    qFatal("the payment was not saved");
  const QString lost = QString("a power cut could undo %1 of its %2 statements").arg(counts().unsyncedCommits).arg(counts().commits);
  tally.add("a save that was acknowledged", counts().unsyncedCommits == 0 ? "" : lost);
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
  std::printf("disk: a save writes %d times; %d errors injected\n", writes, Firm::injected);
}

} // namespace Faults
