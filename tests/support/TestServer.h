#pragma once

#include "accountset/AccountSetLocation.h"
#include "accountset/ServerAccountSet.h"
#include "accountset/Store.h"

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

// A database with all tables, gone again with this.
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

  const ServerAccountSet::Login login{QStringLiteral("clerk"), QStringLiteral("p;w}x y")};
  const AccountSetLocation administrator;
  const tl::expected<void, QString> made;
  AccountSetLocation clerk; // who the program is
};

} // namespace TestServer
