#pragma once

#include "database/DatabaseError.h"
#include "database/RowSet.h"

#include <chrono>
#include <optional>

struct sqlite3;

// What keeps a file harmless that was not made by the program family. Whoever opens it runs statements
// over it, and such a file could hold what makes them endless: a view in a table's place, expressions in
// its definitions, values without measure.
namespace AccountSetFile {

// Whether the file may be opened, before anything of it is read.
[[nodiscard]] DatabaseResult<void> check(const QString& path);

// Views and triggers are off, and no value is longer than LongestValue. Returns SQLite's result code.
[[nodiscard]] int limit(sqlite3* database);

// Whether an open file may be worked with. It may hold tables, indexes of columns, and
// views and triggers, which are not used; virtual tables and definitions with expressions in them (checks,
// generated columns, defaults that are computed, indexes of expressions or of some rows) are refused.
[[nodiscard]] DatabaseResult<void> checkSchema(sqlite3* database);

constexpr int LongestValue = 64 << 20; // a bill template has some megabytes
constexpr std::size_t LargestResult = 256 << 20;
constexpr std::chrono::seconds LongestStatement{30}; // of computing: waiting for a lock is not counted

// The limits of one statement in time and memory, during the lifetime of this object.
class Share {
public:
  Share(sqlite3* database, std::chrono::nanoseconds time);
  ~Share();
  Share(const Share&) = delete;
  Share& operator=(const Share&) = delete;

  bool hasRoomFor(const RowSet& rows) const { return rows.size() <= LargestResult; }
  // Why a statement that did not come to its end has used up its share; nothing if it hasn't.
  std::optional<DatabaseError> excess(const RowSet& rows) const;

private:
  static int isOver(void* share);

  sqlite3* m_database;
  std::chrono::nanoseconds m_time;
  std::chrono::nanoseconds m_end;
};

} // namespace AccountSetFile
