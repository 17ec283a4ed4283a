#pragma once

#include <QString>

#include <tl/expected.hpp>

// Why a statement, or the opening of a database, failed: the engine's own number and text.
struct DatabaseError {
  int number = 0;
  QString description;
  // The connection was lost before anything was done: the statement may be repeated on a new one.
  bool isRepeatable = false;
};

template <typename Value> using DatabaseResult = tl::expected<Value, DatabaseError>;

inline tl::unexpected<DatabaseError> databaseError(int number, const QString& description)
{
  return tl::unexpected(DatabaseError{number, description});
}
