#include "ScriptAccountSet.h"

#include "Failure.h"
#include "accountset/ServerAccountSet.h"
#include "accountset/Store.h"
#include "database/SqlTokens.h"
#include "samplefirm/SampleFirm.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <tuple>

namespace {

using Content = ScriptAccountSet::Content;

constexpr char FileName[] = "A001.mdb";

// The role that the program connects as.
const ServerAccountSet::Login Cashier{QStringLiteral("cashier"), QStringLiteral("cashier")};

template <typename Value> Value require(tl::expected<Value, QString> result)
{
  if (!result)
    throw Failure(QStringLiteral("cannot make an account set: %1").arg(result.error()));
  if constexpr (!std::is_void_v<Value>)
    return *std::move(result);
}

AccountSet::Fill fillOf(Content content)
{
  return content == Content::Demo ? AccountSet::Fill(SampleFirm::write) : AccountSet::Fill();
}

QString nameOf(Content content)
{
  return content == Content::Demo ? QStringLiteral("demo") : QStringLiteral("empty");
}

class InFile : public ScriptAccountSet {
public:
  InFile(const QString& programFolder, const QString& cacheFolder)
      : ScriptAccountSet({QDir(programFolder).filePath(QStringLiteral("Data/") + FileName), {}}), m_cache(cacheFolder)
  {
  }

  bool exists() const override { return QFile::exists(m_location.file); }

  void make(Content content) override
  {
    const QString cached = m_cache.filePath(nameOf(content));
    if (!QFile::exists(cached))
      require(AccountSet::create(cached, fillOf(content)));
    QFile::remove(m_location.file);
    if (!QFile::copy(cached, m_location.file))
      throw Failure(QStringLiteral("cannot copy the account set"));
  }

  QHash<QString, QString> sessionKeys() const override
  {
    return {{QStringLiteral("DatabaseType"), QStringLiteral("Access")}, {QStringLiteral("ConDataName"), QLatin1String(FileName)}};
  }

private:
  QDir m_cache;
};

class OnServer : public ScriptAccountSet {
public:
  explicit OnServer(const AccountSetLocation& location) : ScriptAccountSet(location) {}
  ~OnServer() override
  {
    if (m_exists)
      if (const auto store = Store::open(maintenance()))
        std::ignore = (*store)->run(dropping());
  }

  bool exists() const override { return m_exists; }

  void make(Content content) override
  {
    const QString original = QStringLiteral("scripts_") + nameOf(content);
    const auto store = require(Store::open(maintenance()));
    if (require(store->run(QStringLiteral("select 1 from pg_database where datname='%1'").arg(original))).rows() == 0)
      require(ServerAccountSet::create(ServerAccountSet::withDatabase(m_location, original), Cashier, fillOf(content)));
    require(store->runAll({dropping(), QStringLiteral("create database %1 template %2").arg(m_location.server.database, original)}));
    m_exists = true;
  }

  QHash<QString, QString> sessionKeys() const override
  {
    const ServerAddress& server = m_location.server;
    return {{QStringLiteral("DatabaseType"), QStringLiteral("SQL")},
            {QStringLiteral("ConDataName"), server.database},
            {QStringLiteral("ConServerIP"), server.host},
            {QStringLiteral("ConPortNum"), server.port},
            {QStringLiteral("ConDataBaseUID"), Cashier.name},
            {QStringLiteral("ConDataBasePWD"), Cashier.password}};
  }

private:
  AccountSetLocation maintenance() const { return ServerAccountSet::withDatabase(m_location, QStringLiteral("postgres")); }
  QString dropping() const { return QStringLiteral("drop database if exists %1 with (force)").arg(m_location.server.database); }

  bool m_exists = false;
};

} // namespace

std::unique_ptr<ScriptAccountSet> ScriptAccountSet::inFile(const QString& programFolder, const QString& cacheFolder)
{
  return std::make_unique<InFile>(programFolder, cacheFolder);
}

std::unique_ptr<ScriptAccountSet> ScriptAccountSet::onServer(const ServerAddress& administrator)
{
  const QString name = QStringLiteral("script_%1").arg(QCoreApplication::applicationPid());
  return std::make_unique<OnServer>(ServerAccountSet::withDatabase({{}, administrator}, name));
}

QList<QStringList> ScriptAccountSet::run(const QString& sql) const
{
  const std::vector<SqlToken> tokens = SqlTokens::read(sql);
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i)
    if (tokens[i].isSymbol(u';'))
      throw Failure(QStringLiteral("there is a second statement: %1").arg(sql.sliced(tokens[i + 1].text.data() - sql.data())));
  const auto store = Store::open(m_location);
  const auto found = store ? (*store)->run(sql) : tl::make_unexpected(store.error());
  if (!found)
    throw Failure(QStringLiteral("the statement fails: %1").arg(found.error()));
  QList<QStringList> rows;
  for (qint64 row = 0; row < found->rows(); ++row) {
    rows.append(QStringList());
    for (int i = 0; i < found->names().size(); ++i) {
      const Value value = found->value(row, i);
      rows.last().append(value.isNull() ? QStringLiteral("NULL") : value.toText());
    }
  }
  return rows;
}
