#pragma once

#include "accountset/AccountSet.h"
#include "accountset/AccountSetLocation.h"

// Makes account sets on a PostgreSQL server.
namespace ServerAccountSet {

// The name and the password by which the program will ask for the database.
struct Login {
  QString name;
  QString password;
};

// Makes the database that `location` names, as the administrator that it names, with all tables, keys and
// indexes, and lets `login` select, insert, update and delete there, and nothing else. A login that is not
// there yet is made; one that is keeps its password. A database that was there before is left as it
// was.
[[nodiscard]] tl::expected<void, QString> create(const AccountSetLocation& location, const Login& login, const AccountSet::Fill& fill = {});

// The same server, but another database.
AccountSetLocation withDatabase(const AccountSetLocation& location, const QString& database);

} // namespace ServerAccountSet
