#include "accountset/ServerAccountSet.h"

#include "accountset/Copy.h"
#include "accountset/SchemaSql.h"
#include "accountset/Store.h"
#include "database/PostgreSqlTypes.h"
#include "database/SqlTokens.h"

#include <QTemporaryDir>

#include <tuple>

using namespace Qt::StringLiterals;

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
  const auto found = server.run(u"select 1 from pg_roles where rolname="_s + SqlTokens::quoted(login.name, u'\''));
  if (!found)
    return tl::unexpected(found.error());
  if (found->rows() > 0)
    return {};
  return server.runAll({u"create role "_s + name(login.name) + u" login password "_s + SqlTokens::quoted(login.password, u'\'')});
}

// Data access only: no CREATE, not even temporary tables.
QStringList rightsOf(const AccountSetLocation& location, const Login& login)
{
  return {u"revoke create on schema public from public"_s,
          u"revoke temporary on database "_s + name(location.server.database) + u" from public"_s,
          u"grant usage on schema public to "_s + name(login.name),
          u"grant select, insert, update, delete on all tables in schema public to "_s + name(login.name)};
}

// `fill` writes into a file, from which the rows are copied.
Result fillServer(Store& server, const AccountSet::Fill& fill)
{
  const QTemporaryDir folder;
  const AccountSetLocation file{folder.filePath(u"filled.mdb"_s), {}};
  return AccountSet::create(file.file, fill).and_then([&] { return Store::open(file); }).and_then([&](const std::unique_ptr<Store>& store) {
    return Copy::rows(*store, server);
  });
}

Result fillDatabase(const AccountSetLocation& location, const Login& login, const AccountSet::Fill& fill)
{
  const auto database = Store::open(location);
  if (!database)
    return tl::unexpected(database.error());
  QStringList statements = {u"begin"_s};
  statements += PostgreSqlTypes::definitions();
  statements += SchemaSql::statements(Schema::allTables(), SchemaSql::Server);
  statements += rightsOf(location, login);
  statements += u"commit"_s;
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
    return tl::unexpected(u"不能连接服务器：%1"_s.arg(opened.error()));
  Store& server = **opened;
  const QString database = name(location.server.database);
  const auto made = makeLogin(server, login).and_then([&] {
    return server.runAll({u"create database "_s + database + u' ' + QLatin1String(PostgreSqlTypes::DatabaseOptions)});
  });
  if (!made)
    return tl::unexpected(u"不能建立账套数据库：%1"_s.arg(made.error()));
  const auto filled = fillDatabase(location, login, fill);
  if (filled)
    return {};
  std::ignore = server.run(u"drop database "_s + database);
  return tl::unexpected(u"不能建立账套的数据表：%1"_s.arg(filled.error()));
}

} // namespace ServerAccountSet
