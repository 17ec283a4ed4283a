#pragma once

#include "accountset/Schema.h"

#include <QStringList>

// The description of the tables as SQL. The engines differ only in a few words.
namespace SchemaSql {

struct Words {
  QString (*typeOf)(Schema::ColumnType);
  const char* nullsAhead; // of a column of an index, because queries sort nulls first
};

// For the embedded engine, and for a PostgreSQL server with the types of PostgreSqlTypes.
extern const Words Embedded;
extern const Words Server;

// All "create table" and "create index" statements.
QStringList statements(std::span<const Schema::Table> tables, const Words& words);

} // namespace SchemaSql
