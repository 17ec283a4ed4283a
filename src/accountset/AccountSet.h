#pragma once

#include <QString>

// Makes new account sets: the file on which the embedded engine works.
namespace AccountSet {

enum class Content {
  Empty, // all tables, no rows
  Demo,  // the sample firm
};

// Makes the file. Empty if it stands now, otherwise why not; then there is no file, or the one that
// was there before: an existing file is never written over.
QString create(const QString& filePath, Content content);

} // namespace AccountSet
