#pragma once

#include "database/Sqlite.h"

#include <QString>

// A database file held open beside the program, without the program's guards: to make files, to lock them and to see
// what was stored.
class RawDatabase {
public:
  // Opens the file, and creates it if necessary. Aborts the test run on any error.
  explicit RawDatabase(const QString& path);

  // Runs statements, separated by ";".
  void run(const QString& sql) { rows(sql); }
  // The rows of a query: values separated by "|", rows by a line break, null as "NULL".
  QString rows(const QString& sql);

private:
  Sqlite::Database m_database;
};
