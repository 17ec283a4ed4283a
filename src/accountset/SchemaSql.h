#pragma once

#include "accountset/Schema.h"

#include <QStringList>

// The description of the tables as SQL. The engines differ in a few words alone.
namespace SchemaSql {

struct Words {
  QString (*typeOf)(Schema::ColumnType);
  const char* nullsAhead; // of a column of an index; a question sorts what is null ahead
};

// Of the embedded engine, and of a PostgreSQL server whose types PostgreSqlTypes has made.
extern const Words Embedded;
extern const Words Server;

// All "create table" and "create index" statements.
QStringList statements(std::span<const Schema::Table> tables, const Words& words);

} // namespace SchemaSql
