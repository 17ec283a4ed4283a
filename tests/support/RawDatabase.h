#pragma once

#include <QString>

struct sqlite3;

// A database file held open beside the program, with none of the program's guards: for making files,
// for locking them and for looking at what was stored.
class RawDatabase {
public:
  // Opens the file, and makes it if it is not there. Aborts the test run on any error.
  explicit RawDatabase(const QString& path);
  ~RawDatabase();
  RawDatabase(const RawDatabase&) = delete;
  RawDatabase& operator=(const RawDatabase&) = delete;

  // Runs statements, parted by ";".
  void run(const QString& sql);
  // The rows of a query: values parted by "|", rows by a line break, null as "NULL".
  QString rows(const QString& sql);

private:
  sqlite3* m_database = nullptr;
};
