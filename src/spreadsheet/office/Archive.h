#pragma once

#include <QString>

// The total unpacked size that the entries of a zip archive declare (a new workbook is one); 0 for a file that is not
// an archive.
qint64 unpackedSize(const QString& path);
