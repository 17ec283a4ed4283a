#pragma once

struct sqlite3;

// The collations of an account set's file. Whoever opens such a file must register them first.
namespace SqliteCollations {

// Compares dates by the day, however they are written ("2022-6-1" and "2022-06-01" are one), and
// what is no date as text after all dates.
constexpr char Date[] = "ZDATE";
// Text without regard to the case of Latin letters.
constexpr char Text[] = "NOCASE";

// Returns SQLite's result code.
int registerAll(sqlite3* database);

} // namespace SqliteCollations
