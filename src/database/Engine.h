#pragma once

#include "database/DatabaseError.h"
#include "database/RowSet.h"

#include <memory>

// An open database of one kind. Takes the suite's SQL as it is written, in either dialect; one statement a call, and
// only select, insert, update and delete.
class Engine {
public:
  virtual ~Engine() = default;

  // The rows of a select; a row set without columns for every other statement.
  [[nodiscard]] virtual DatabaseResult<RowSet> execute(const QString& sql) = 0;
  // False once the connection is lost; the next statement then needs a new engine.
  virtual bool isOpen() const = 0;

  // The statements from begin to commit are one transaction. A failing one is undone alone; after a failure that ends
  // the whole transaction (a full disk, a lost connection) the engine is no longer in it, and nothing of it is stored.
  [[nodiscard]] virtual DatabaseResult<void> begin() = 0;
  [[nodiscard]] virtual DatabaseResult<void> commit() = 0;
  virtual void rollback() = 0;
  virtual bool isInTransaction() const = 0;
};
