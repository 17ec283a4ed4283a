#pragma once

#include "accountset/Schema.h"

#include <QStringList>

// The description of the tables as SQL. The engines differ in the words for the types of columns alone.
namespace SchemaSql {

using TypeWords = QString (*)(Schema::ColumnType);

// The words of the embedded engine, and of a PostgreSQL server whose types PostgreSqlTypes has made.
QString embeddedType(Schema::ColumnType type);
QString serverType(Schema::ColumnType type);

// All "create table" and "create index" statements.
QStringList statements(std::span<const Schema::Table> tables, TypeWords typeOf);

} // namespace SchemaSql
