#pragma once

#include "printing/ModSavePrintData.h"

#include <QStringList>

// One printout of a screen: its title, the lines above and below, and its grid.
struct PrintJob {
  QString title;
  QStringList head = {};
  QStringList foot = {};
  ModSavePrintData::PrintGrid printed = {};
};

// The grid of a list or of a bill's lines as it is printed: without the row marker, and without the last row if that
// is the empty one for typing.
ModSavePrintData::PrintGrid printedLines(const Grid& grid);

// Writes the printout and starts the print manager on it. `printType` is "直接打印", "打印预览" or
// "打印设置". Every failure is shown.
void PrintHandOff(Session& session, const PrintJob& job, const QString& printType);
