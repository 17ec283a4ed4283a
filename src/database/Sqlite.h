#pragma once

#include "database/DatabaseError.h"
#include "database/RowSet.h"

#include <memory>

struct sqlite3;
struct sqlite3_backup;
struct sqlite3_stmt;

// SQLite's C API as its users in this program want it: handles that are released with their owner, its
// errors, and its rows.
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

// Of the last call that failed.
DatabaseError errorOf(sqlite3* database);

[[nodiscard]] DatabaseResult<Statement> prepare(sqlite3* database, const QByteArray& sql);

// A row set with the columns of a statement, and no rows yet.
RowSet columnsOf(sqlite3_stmt* statement);
// Appends the row to which the statement was stepped.
void appendRow(RowSet& rows, sqlite3_stmt* statement);

} // namespace Sqlite
