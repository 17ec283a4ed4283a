#pragma once

#include <QString>

// How much the parts of a zip archive, which a new workbook is, say they hold when they are unpacked; 0 for a file
// that is no archive.
qint64 unpackedSize(const QString& path);
