#pragma once

#include <QString>

// The bills of the whole suite by their Chinese names, and the tables in which their rows lie.
namespace ModFuntion {

// Header table of a bill name (blanks around it do not count); empty for an unknown name.
QString GetBillHeaderTable(const QString& billName);
// Line table; empty for an unknown name and for a bill without lines.
QString GetBillLineTable(const QString& billName);
// The kind under which images of a bill are stored, and the order to the image manager.
QString GetBillImageKind(const QString& billName);

} // namespace ModFuntion
