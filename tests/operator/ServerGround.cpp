#include "AccountSetGround.h"
#include "Unmet.h"
#include "accountset/ServerAccountSet.h"
#include "accountset/Store.h"

#include <QCoreApplication>
#include <QUrl>

#include <tuple>

namespace {

// Who the program is.
const ServerAccountSet::Login Cashier{QStringLiteral("cashier"), QStringLiteral("cashier")};

// Each script's database is copied from one that is made once.
class ServerGround : public AccountSetGround {
public:
  explicit ServerGround(const ServerAddress& administrator)
      : m_server{{}, administrator}, m_name(QStringLiteral("script_%1").arg(QCoreApplication::applicationPid()))
  {
  }
  ~ServerGround() override
  {
    m_side.reset();
    if (m_maintenance)
      std::ignore = m_maintenance->run(dropping());
  }

  bool stands() const override { return m_stands; }

  void make(Content content) override
  {
    const QString original = content == Content::Demo ? QStringLiteral("scripts_demo") : QStringLiteral("scripts_empty");
    makeOriginal(original, content);
    m_side.reset();
    require(maintenance().runAll({dropping(), QStringLiteral("create database %1 template %2").arg(m_name, original)}));
    m_stands = true;
  }

  QList<QStringList> run(const QString& sql) override
  {
    if (!m_side)
      m_side = open(m_name);
    return rowsOf(*m_side, sql);
  }

  QHash<QString, QString> sessionKeys() const override
  {
    return {{QStringLiteral("DatabaseType"), QStringLiteral("SQL")}, {QStringLiteral("ConDataName"), m_name},
            {QStringLiteral("ConServerIP"), m_server.server.host},   {QStringLiteral("ConPortNum"), m_server.server.port},
            {QStringLiteral("ConDataBaseUID"), Cashier.name},        {QStringLiteral("ConDataBasePWD"), Cashier.password}};
  }

private:
  template <typename Value> static Value require(tl::expected<Value, QString> result)
  {
    if (!result)
      throw Unmet(QStringLiteral("cannot make an account set: %1").arg(result.error()));
    if constexpr (!std::is_void_v<Value>)
      return *std::move(result);
  }

  std::unique_ptr<Store> open(const QString& database) const
  {
    return require(Store::open(ServerAccountSet::withDatabase(m_server, database)));
  }

  Store& maintenance()
  {
    if (!m_maintenance)
      m_maintenance = open(QStringLiteral("postgres"));
    return *m_maintenance;
  }

  void makeOriginal(const QString& name, Content content)
  {
    const RowSet found = require(maintenance().run(QStringLiteral("select 1 from pg_database where datname='%1'").arg(name)));
    if (found.rows() == 0)
      require(ServerAccountSet::create(ServerAccountSet::withDatabase(m_server, name), Cashier, fillOf(content)));
  }

  QString dropping() const { return QStringLiteral("drop database if exists %1 with (force)").arg(m_name); }

  AccountSetLocation m_server;
  QString m_name;
  std::unique_ptr<Store> m_maintenance;
  std::unique_ptr<Store> m_side;
  bool m_stands = false;
};

} // namespace

std::unique_ptr<AccountSetGround> AccountSetGround::onServer(const ServerAddress& administrator)
{
  return std::make_unique<ServerGround>(administrator);
}

std::optional<ServerAddress> AccountSetGround::readServer(const QString& text)
{
  const auto location = AccountSetLocation::read(QStringLiteral("server://%1/postgres").arg(text));
  return location ? std::optional(location->server) : std::nullopt;
}
