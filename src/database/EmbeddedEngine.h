#pragma once

#include "database/AccountSetFile.h"
#include "database/Engine.h"

#include <chrono>

// The embedded engine: SQLite through its C API, on one file.
//
// Opening never creates a file: it must exist, be a regular file and have SQLite's header. It uses a rollback
// journal, and what a statement wrote is on the disk when it returns; a recordset is read to its end at once, so no
// statement stays open and blocks another operator. What a file may hold and how long a statement may take:
// AccountSetFile.
struct EmbeddedEngine {
  // How long a statement waits for another program's lock.
  static constexpr std::chrono::milliseconds LockWait{30000};

  [[nodiscard]] static DatabaseResult<std::unique_ptr<Engine>>
  open(const QString& path, std::chrono::milliseconds lockWait = LockWait,
       std::chrono::milliseconds longestStatement = AccountSetFile::LongestStatement);
};
