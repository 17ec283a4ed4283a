#pragma once

#include "accountset/AccountSet.h"
#include "accountset/AccountSetLocation.h"

// Creates account sets on a PostgreSQL server.
namespace ServerAccountSet {

// The role that the program connects as.
struct Login {
  QString name;
  QString password;
};

// Creates the database that `location` names, as the administrator that it names, with all tables, keys and indexes,
// and grants `login` select, insert, update and delete on them, and nothing else. A missing login is created; an
// existing one keeps its password. An existing database is left unchanged.
[[nodiscard]] tl::expected<void, QString> create(const AccountSetLocation& location, const Login& login, const AccountSet::Fill& fill = {});

// `location` with another database name.
AccountSetLocation withDatabase(const AccountSetLocation& location, const QString& database);

} // namespace ServerAccountSet
