#include "accountset/ServerAccountSet.h"

#include "accountset/Copy.h"
#include "accountset/SchemaSql.h"
#include "accountset/Store.h"
#include "database/PostgreSqlTypes.h"

#include <QTemporaryDir>

namespace ServerAccountSet {
namespace {

// The database that every server has, for statements about databases.
constexpr char Maintenance[] = "postgres";

QString name(const QString& text)
{
  return u'"' + QString(text).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString text(const QString& text)
{
  return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\'';
}

QString makeLogin(Store& server, const Login& login)
{
  const StatementResult found = server.run("select 1 from pg_roles where rolname=" + text(login.name));
  if (found.error)
    return found.error->description;
  if (found.rows.rows() > 0)
    return {};
  return server.runAll({"create role " + name(login.name) + " login password " + text(login.password)});
}

// Rows alone: no tables of one's own, not even passing ones.
QStringList rightsOf(const AccountSetLocation& location, const Login& login)
{
  return {"revoke create on schema public from public", "revoke temporary on database " + name(location.server.database) + " from public",
          "grant usage on schema public to " + name(login.name),
          "grant select, insert, update, delete on all tables in schema public to " + name(login.name)};
}

QString fillWithSample(Store& server)
{
  const QTemporaryDir folder;
  const AccountSetLocation sample{folder.filePath(QStringLiteral("sample.mdb")), {}};
  if (const QString reason = AccountSet::create(sample.file, AccountSet::Content::Demo); !reason.isEmpty())
    return reason;
  const Store::Opening opening = Store::open(sample);
  return opening.store ? Copy::rows(*opening.store, server) : opening.reason;
}

QString fillDatabase(const AccountSetLocation& location, const Login& login, AccountSet::Content content)
{
  const Store::Opening database = Store::open(location);
  if (!database.store)
    return database.reason;
  QStringList statements = {QStringLiteral("begin")};
  statements += PostgreSqlTypes::definitions();
  statements += SchemaSql::statements(Schema::allTables(), SchemaSql::Server);
  statements += rightsOf(location, login);
  statements += QStringLiteral("commit");
  if (const QString reason = database.store->runAll(statements); !reason.isEmpty())
    return reason;
  return content == AccountSet::Content::Demo ? fillWithSample(*database.store) : QString();
}

} // namespace

AccountSetLocation withDatabase(const AccountSetLocation& location, const QString& database)
{
  AccountSetLocation other = location;
  other.server.database = database;
  return other;
}

QString create(const AccountSetLocation& location, const Login& login, AccountSet::Content content)
{
  const Store::Opening server = Store::open(withDatabase(location, QLatin1String(Maintenance)));
  if (!server.store)
    return QStringLiteral("不能连接服务器：%1").arg(server.reason);
  QString reason = makeLogin(*server.store, login);
  if (reason.isEmpty())
    reason = server.store->runAll({"create database " + name(location.server.database) + u' ' + PostgreSqlTypes::DatabaseOptions});
  if (!reason.isEmpty())
    return QStringLiteral("不能建立账套数据库：%1").arg(reason);
  reason = fillDatabase(location, login, content);
  if (reason.isEmpty())
    return {};
  server.store->run("drop database " + name(location.server.database));
  return QStringLiteral("不能建立账套的数据表：%1").arg(reason);
}

} // namespace ServerAccountSet
