#pragma once

#include "database/DatabaseError.h"
#include "database/RowSet.h"

#include <chrono>
#include <optional>

struct sqlite3;

// Protects against files that were not made by the suite. Statements run on such a file could take forever: it may
// hold a view in place of a table, expressions in its definitions, or values of any size.
namespace AccountSetFile {

// Whether the file may be opened. Reads nothing but its header.
[[nodiscard]] DatabaseResult<void> check(const QString& path);

// Views and triggers are off, and no value is longer than LongestValue. Returns SQLite's result code.
[[nodiscard]] int limit(sqlite3* database);

// Whether an open file may be used. It may hold tables, indexes of columns, and views and triggers, which are not
// used; virtual tables and definitions with expressions in them (checks, generated columns, defaults that are
// computed, indexes of expressions or of some rows) are refused.
[[nodiscard]] DatabaseResult<void> checkSchema(sqlite3* database);

constexpr int LongestValue = 64 << 20; // a bill template has a few megabytes
constexpr std::size_t LargestResult = 256 << 20;
constexpr std::chrono::seconds LongestStatement{30}; // CPU time: waiting for a lock is not counted

// The limits of one statement in time and memory, during the lifetime of this object.
class Share {
public:
  Share(sqlite3* database, std::chrono::nanoseconds time);
  ~Share();
  Share(const Share&) = delete;
  Share& operator=(const Share&) = delete;

  bool hasRoomFor(const RowSet& rows) const { return rows.size() <= LargestResult; }
  // Which limit stopped a statement that did not finish; nothing if none did.
  std::optional<DatabaseError> excess(const RowSet& rows) const;

private:
  static int isOver(void* share);

  sqlite3* m_database;
  std::chrono::nanoseconds m_time;
  std::chrono::nanoseconds m_end;
};

} // namespace AccountSetFile
