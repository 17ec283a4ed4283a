#pragma once

#include "database/DatabaseError.h"
#include "database/RowSet.h"

#include <memory>

struct sqlite3;
struct sqlite3_backup;
struct sqlite3_stmt;

// Helpers for SQLite's C API: handles that are released with their owner, errors and rows.
namespace Sqlite {

struct Release {
  void operator()(sqlite3* database) const;
  void operator()(sqlite3_stmt* statement) const;
  void operator()(sqlite3_backup* backup) const;
  void operator()(unsigned char* bytes) const;
};
template <typename Resource> using Handle = std::unique_ptr<Resource, Release>;

using Database = Handle<sqlite3>;
using Statement = Handle<sqlite3_stmt>;

// The error of the last call that failed.
DatabaseError errorOf(sqlite3* database);

[[nodiscard]] DatabaseResult<Statement> prepare(sqlite3* database, const QByteArray& sql);

// An empty row set with the columns of a statement.
RowSet columnsOf(sqlite3_stmt* statement);
// Appends the current row of the statement.
void appendRow(RowSet& rows, sqlite3_stmt* statement);

} // namespace Sqlite
