#include "AccountSetGround.h"
#include "Unmet.h"
#include "accountset/Store.h"

#include <QDir>
#include <QFile>

namespace {

constexpr char AccountSetName[] = "A001.mdb";

// Finished files are kept on a shelf for the scripts that follow.
class FileGround : public AccountSetGround {
public:
  FileGround(const QString& programFolder, const QString& shelf)
      : m_path(QDir(programFolder).filePath(QStringLiteral("Data/") + AccountSetName)), m_shelf(shelf)
  {
  }

  bool stands() const override { return QFile::exists(m_path); }

  void make(Content content) override
  {
    const QString kept = QDir(m_shelf).filePath(content == Content::Demo ? "demo" : "empty");
    if (!QFile::exists(kept))
      if (const auto made = AccountSet::create(kept, fillOf(content)); !made)
        throw Unmet(QStringLiteral("cannot make an account set: %1").arg(made.error()));
    QFile::remove(m_path);
    if (!QFile::copy(kept, m_path))
      throw Unmet(QStringLiteral("cannot copy the account set"));
  }

  QList<QStringList> run(const QString& sql) override
  {
    const auto store = Store::open({m_path, {}});
    if (!store)
      throw Unmet(QStringLiteral("the statement fails: %1").arg(store.error()));
    return rowsOf(**store, sql);
  }

  QHash<QString, QString> sessionKeys() const override
  {
    return {{QStringLiteral("DatabaseType"), QStringLiteral("Access")}, {QStringLiteral("ConDataName"), QLatin1String(AccountSetName)}};
  }

private:
  QString m_path;
  QString m_shelf;
};

} // namespace

std::unique_ptr<AccountSetGround> AccountSetGround::onFile(const QString& programFolder, const QString& shelf)
{
  return std::make_unique<FileGround>(programFolder, shelf);
}
