#pragma once

#include "database/Sqlite.h"

#include <QString>

// A database file held open beside the program, with none of the program's guards: for making files,
// for locking them and for looking at what was stored.
class RawDatabase {
public:
  // Opens the file, and makes it if it is not there. Aborts the test run on any error.
  explicit RawDatabase(const QString& path);

  // Runs statements, separated by ";".
  void run(const QString& sql);
  // The rows of a query: values separated by "|", rows by a line break, null as "NULL".
  QString rows(const QString& sql);

private:
  Sqlite::Database m_database;
};
