#pragma once

struct sqlite3;

// The collations of an account set's file. They must be registered on opening such a file.
namespace SqliteCollations {

// Compares dates by the day, however they are written ("2022-6-1" equals "2022-06-01"); what is not a date sorts as
// text after all dates.
constexpr char Date[] = "ZDATE";
// Text without regard to the case of Latin letters.
constexpr char Text[] = "NOCASE";

// Returns SQLite's result code.
int registerAll(sqlite3* database);

} // namespace SqliteCollations
