#pragma once

#include "accountset/AccountSetLocation.h"
#include "accountset/ServerAccountSet.h"
#include "accountset/Store.h"
#include "session/SessionParams.h"

#include <optional>
#include <tuple>

// The PostgreSQL server beside which the tests run (tools/with-server), if there is one.
namespace TestServer {

// Its administrator, in one of its databases.
inline std::optional<AccountSetLocation> administrator(const QString& database = QStringLiteral("postgres"))
{
  if (!qEnvironmentVariableIsSet("ZORVEK_SERVER"))
    return std::nullopt;
  return AccountSetLocation::read(QStringLiteral("server://%1/%2").arg(qEnvironmentVariable("ZORVEK_SERVER"), database));
}

// A database with all tables, dropped with this object.
struct Database {
  explicit Database(const QString& name, const AccountSet::Fill& fill = {})
      : administrator(*TestServer::administrator(name)), made(ServerAccountSet::create(administrator, login, fill)), clerk(administrator)
  {
    clerk.server.user = login.name;
    clerk.server.password = login.password;
  }
  ~Database()
  {
    if (const auto store = Store::open(*TestServer::administrator()))
      std::ignore = (*store)->run("drop database if exists \"" + administrator.server.database + "\" with (force)");
  }

  // The parameters of a session of the program on it.
  void use(SessionParams& params) const
  {
    params.DatabaseType = QStringLiteral("SQL");
    params.IsAccessSQL = false;
    params.ConDataName = clerk.server.database;
    params.ConServerIP = clerk.server.host;
    params.ConPortNum = clerk.server.port;
    params.ConDataBaseUID = login.name;
    params.ConDataBasePWD = QStringLiteral("{p;w}}x y}");
  }

  const ServerAccountSet::Login login{QStringLiteral("clerk"), QStringLiteral("p;w}x y")};
  const AccountSetLocation administrator;
  const tl::expected<void, QString> made;
  AccountSetLocation clerk; // as the program logs in
};

} // namespace TestServer
