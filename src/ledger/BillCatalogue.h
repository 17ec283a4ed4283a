#pragma once

#include <QString>

// The bills of the whole suite by their Chinese names, and their tables.
namespace ModFuntion {

// Header table of a bill name (trimmed); empty for an unknown name.
QString GetBillHeaderTable(const QString& billName);
// Line table; empty for an unknown name and for a bill without lines.
QString GetBillLineTable(const QString& billName);
// The kind under which images of a bill are stored, and the directive to the image manager.
QString GetBillImageKind(const QString& billName);

} // namespace ModFuntion
