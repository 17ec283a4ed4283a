#include "Faults.h"
#include "FaultyFiles.h"
#include "PaymentWriter.h"
#include "accountset/AccountSet.h"
#include "accountset/Store.h"
#include "samplefirm/SampleFirm.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <sqlite3.h>
#include <tuple>

namespace Faults {
namespace {

const QList<int> Amounts = {100, 200, 300};

// A fresh sample firm, and whoever saves payments in it.
class Scene {
public:
  Scene()
  {
    QDir(m_folder.path()).mkpath(QStringLiteral("Data"));
    if (const auto made = AccountSet::create(path(), SampleFirm::write); !made)
      qFatal("%s", qPrintable(made.error()));
    m_writer = std::make_unique<PaymentWriter>(m_folder.path(), PaymentWriter::onFile());
  }

  // Nothing if a payment was saved without a box.
  QString save()
  {
    const auto outcome = m_writer->save(Amounts);
    return outcome.isWritten && outcome.boxes.isEmpty() ? QString() : outcome.boxes.join(u" / ") + u'.';
  }

  // One box for each statement that failed; and behind it, when the disk is well, the same process saves.
  QString saveUnder(const FaultyFiles::Plan& plan)
  {
    FaultyFiles::follow(plan);
    const QStringList said = m_writer->save(Amounts).boxes;
    const auto errors = std::count_if(said.begin(), said.end(), [](const QString& text) { return text.startsWith(u"Error:"); });
    if (FaultyFiles::failures() == 0 || errors == 0)
      return QStringLiteral("%1 failures were told in %2 boxes").arg(FaultyFiles::failures()).arg(errors);
    if (errors != FaultyFiles::failedStatements())
      return QStringLiteral("%1 statements failed, %2 boxes came: %3")
          .arg(FaultyFiles::failedStatements())
          .arg(errors)
          .arg(said.join(u" / "));
    injected += FaultyFiles::failures();
    FaultyFiles::follow({});
    removeOrphans();
    if (const QString again = save(); !again.isEmpty())
      return QStringLiteral("the next save said: ") + again;
    return contents();
  }

  static inline int injected = 0;

private:
  QString path() const { return m_folder.filePath(QStringLiteral("Data/A001.mdb")); }

  // A header that failed leaves its lines, and the next bill draws its number.
  void removeOrphans() const
  {
    std::ignore = (*Store::open({path(), {}}))
                      ->run(QStringLiteral("delete from TabPayfundBillInf where BillCode not in (select Code from TabPayfundBill)"));
  }

  QString contents() const
  {
    const auto store = *Store::open({path(), {}});
    const auto value = [&](const char* sql) { return store->run(QLatin1String(sql))->value(0, 0).toText(); };
    if (const QString whole = value("pragma integrity_check"); whole != u"ok")
      return whole;
    // The bill that was saved last has the highest code.
    if (value("select sum(Moneyy) from TabPayfundBillInf where BillCode=(select max(Code) from TabPayfundBill)") != u"600")
      return QStringLiteral("the bill that was saved behind it is not there");
    return {};
  }

  QTemporaryDir m_folder;
  std::unique_ptr<PaymentWriter> m_writer;
};

// The places at which a save writes or syncs.
int writesOfASave(Tally& tally)
{
  Scene scene;
  FaultyFiles::follow({});
  if (!scene.save().isEmpty())
    qFatal("the payment was not saved");
  tally.add(QStringLiteral("a save that was acknowledged"), FaultyFiles::unsyncedCommits() == 0
                                                                ? QString()
                                                                : QStringLiteral("a power cut could undo %1 of its %2 statements")
                                                                      .arg(FaultyFiles::unsyncedCommits())
                                                                      .arg(FaultyFiles::commits()));
  return FaultyFiles::writes();
}

} // namespace

void failingDisk(Tally& tally)
{
  const int writes = writesOfASave(tally);
  for (int write = 1; write <= writes; ++write) {
    tally.add(QStringLiteral("I/O error at write %1").arg(write), Scene().saveUnder({.failAtWrite = write, .failure = SQLITE_IOERR_WRITE}));
    tally.add(QStringLiteral("disk full from write %1").arg(write),
              Scene().saveUnder({.failAtWrite = write, .failure = SQLITE_FULL, .failsOn = true}));
  }
  std::printf("disk: a save writes %d times; %d errors injected\n", writes, Scene::injected);
}

} // namespace Faults
