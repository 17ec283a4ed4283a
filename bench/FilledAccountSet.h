#pragma once

#include "session/Session.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"

#include <QTemporaryDir>

struct sqlite3;

// An empty account set to be filled with more rows than any firm has, the bare engine on it, and a
// session over it. Any failure ends the run.
class FilledAccountSet {
protected:
  FilledAccountSet();
  ~FilledAccountSet();
  FilledAccountSet(const FilledAccountSet&) = delete;
  FilledAccountSet& operator=(const FilledAccountSet&) = delete;

  void run(const QString& sql);
  // One row for each number i below `count`.
  void fill(int count, const QString& table, const QString& columns, const QString& values);

  QTemporaryDir m_folder{"benchmarks-XXXXXX"};
  FakeDesk m_desk;
  FixedMachine m_machine{m_folder.path()};
  Session m_session{m_desk, m_machine};
  sqlite3* m_database = nullptr;
};
