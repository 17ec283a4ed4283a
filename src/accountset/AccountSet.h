#pragma once

#include <QString>

#include <tl/expected.hpp>

#include <functional>

struct sqlite3;

// Makes new account sets: the file on which the embedded engine works.
namespace AccountSet {

// Writes the first rows of a new account set, all of whose tables are there.
using Fill = std::function<tl::expected<void, QString>(sqlite3* database)>;

// Makes the file with all tables, and no rows without `fill`. An existing file is never written over, and after
// an error there is no new one.
[[nodiscard]] tl::expected<void, QString> create(const QString& filePath, const Fill& fill = {});

} // namespace AccountSet
