#pragma once

#include <QString>

#include <tl/expected.hpp>

#include <functional>

struct sqlite3;

// Creates new account sets as files for the embedded engine.
namespace AccountSet {

// Writes the first rows of a new account set whose tables exist.
using Fill = std::function<tl::expected<void, QString>(sqlite3* database)>;

// Creates the file with all tables; without `fill` they are empty. Never overwrites a file, and leaves none after an
// error.
[[nodiscard]] tl::expected<void, QString> create(const QString& filePath, const Fill& fill = {});

} // namespace AccountSet
