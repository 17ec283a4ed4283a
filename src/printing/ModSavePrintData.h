#pragma once

#include <QString>

class Grid;
struct Session;

// Hands a printout to the print manager: writes the screen's content to a text file beside the program, which the
// print manager reads, lays out and prints.
namespace ModSavePrintData {

inline constexpr char FileName[] = "printfile.txt";

// The part of a grid that is printed, hidden columns left out. Null prints no grid.
struct PrintGrid {
  const Grid* grid = nullptr;
  int topSkip = 0;
  int leftSkip = 0;
  int rightSkip = 0;
  int bottomSkip = 0;

  // The counts in the file: visible rows and columns, minus the skips.
  int mshrows() const;
  int mshcols() const;
};

// Lines above and below the grid. RunTimeError for an index that is not 0 to 20.
void SetPrintHeadString(Session& session, const QString& text, int index);
void SetPrintFootString(Session& session, const QString& text, int index);

// Writes the file in place of the last one, in the ANSI code page. RunTimeError if it cannot be written.
void WritePrintFile(Session& session, const PrintGrid& printed, const QString& printTableName, const QString& printType);

} // namespace ModSavePrintData
