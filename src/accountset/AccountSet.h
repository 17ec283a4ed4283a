#pragma once

#include <QString>

#include <tl/expected.hpp>

// Makes new account sets: the file on which the embedded engine works.
namespace AccountSet {

enum class Content {
  Empty, // all tables, no rows
  Demo,  // the sample firm
};

// Makes the file. An existing file is never written over, and after an error there is no new one.
[[nodiscard]] tl::expected<void, QString> create(const QString& filePath, Content content);

} // namespace AccountSet
