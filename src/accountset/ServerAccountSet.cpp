#include "accountset/ServerAccountSet.h"

#include "accountset/Copy.h"
#include "accountset/SchemaSql.h"
#include "accountset/Store.h"
#include "database/PostgreSqlTypes.h"
#include "database/SqlTokens.h"

#include <QTemporaryDir>

#include <tuple>

namespace ServerAccountSet {
namespace {

// The database that every server has, for statements about databases.
constexpr char Maintenance[] = "postgres";

using Result = tl::expected<void, QString>;

QString name(const QString& text)
{
  return SqlTokens::quoted(text, u'"');
}

Result makeLogin(Store& server, const Login& login)
{
  const auto found = server.run("select 1 from pg_roles where rolname=" + SqlTokens::quoted(login.name, u'\''));
  if (!found)
    return tl::unexpected(found.error());
  if (found->rows() > 0)
    return {};
  return server.runAll({"create role " + name(login.name) + " login password " + SqlTokens::quoted(login.password, u'\'')});
}

// Rows alone: no tables of one's own, not even passing ones.
QStringList rightsOf(const AccountSetLocation& location, const Login& login)
{
  return {"revoke create on schema public from public", "revoke temporary on database " + name(location.server.database) + " from public",
          "grant usage on schema public to " + name(login.name),
          "grant select, insert, update, delete on all tables in schema public to " + name(login.name)};
}

// `fill` writes into a file, from which the rows are copied.
Result fillServer(Store& server, const AccountSet::Fill& fill)
{
  const QTemporaryDir folder;
  const AccountSetLocation file{folder.filePath(QStringLiteral("filled.mdb")), {}};
  return AccountSet::create(file.file, fill).and_then([&] { return Store::open(file); }).and_then([&](const std::unique_ptr<Store>& store) {
    return Copy::rows(*store, server);
  });
}

Result fillDatabase(const AccountSetLocation& location, const Login& login, const AccountSet::Fill& fill)
{
  const auto database = Store::open(location);
  if (!database)
    return tl::unexpected(database.error());
  QStringList statements = {QStringLiteral("begin")};
  statements += PostgreSqlTypes::definitions();
  statements += SchemaSql::statements(Schema::allTables(), SchemaSql::Server);
  statements += rightsOf(location, login);
  statements += QStringLiteral("commit");
  return (*database)->runAll(statements).and_then([&] { return fill ? fillServer(**database, fill) : Result(); });
}

} // namespace

AccountSetLocation withDatabase(const AccountSetLocation& location, const QString& database)
{
  AccountSetLocation other = location;
  other.server.database = database;
  return other;
}

Result create(const AccountSetLocation& location, const Login& login, const AccountSet::Fill& fill)
{
  const auto opened = Store::open(withDatabase(location, QLatin1String(Maintenance)));
  if (!opened)
    return tl::unexpected(QStringLiteral("不能连接服务器：%1").arg(opened.error()));
  Store& server = **opened;
  const QString database = name(location.server.database);
  const auto made = makeLogin(server, login).and_then([&] {
    return server.runAll({"create database " + database + u' ' + PostgreSqlTypes::DatabaseOptions});
  });
  if (!made)
    return tl::unexpected(QStringLiteral("不能建立账套数据库：%1").arg(made.error()));
  const auto filled = fillDatabase(location, login, fill);
  if (filled)
    return {};
  std::ignore = server.run("drop database " + database);
  return tl::unexpected(QStringLiteral("不能建立账套的数据表：%1").arg(filled.error()));
}

} // namespace ServerAccountSet
