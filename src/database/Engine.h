#pragma once

#include "database/RowSet.h"

#include <QString>
#include <memory>

// Why a statement, or the opening of a database, failed: the engine's own number and words.
struct DatabaseError {
  int number = 0;
  QString description;
};

// What one statement gave: rows if it was a select, otherwise nothing; or an error.
struct StatementResult {
  bool isQuery = false;
  RowSet rows;
  std::unique_ptr<DatabaseError> error;
  // With an error: the connection was lost and nothing was done, so that the statement may be sent once
  // more over a new one.
  bool isRepeatable = false;

  static StatementResult failed(int number, const QString& description);
};

// An open database of one kind. Takes the system's SQL as it is written, in either column of the
// dialect rule; one statement a call, and only select, insert, update and delete.
class Engine {
public:
  virtual ~Engine() = default;

  virtual StatementResult execute(const QString& sql) = 0;
  // False once the connection is lost; the next statement then needs a new engine.
  virtual bool isOpen() const = 0;
};
