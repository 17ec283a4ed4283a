#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

// The spreadsheet program with one workbook open in it. It is another process, and may be missing or
// refuse at any time: every call throws RunTimeError then. Rows and columns count from 1, and sheets
// go by name without regard to case. Letting go of it ends the program, unless it was handed over.
class Spreadsheet {
public:
  virtual ~Spreadsheet() = default;

  virtual QStringList sheetNames() = 0;
  // The texts of the first rows and columns of a sheet, row by row.
  virtual QList<QStringList> texts(const QString& sheet, int rows, int columns) = 0;
  // Puts a text into a cell as if the operator typed it.
  virtual void setText(const QString& sheet, int row, int column, const QString& text) = 0;
  // New rows ahead of `row`, each looking like the one above.
  virtual void insertRows(const QString& sheet, int row, int count) = 0;
  virtual void deleteRow(const QString& sheet, int row) = 0;

  virtual void print(const QString& sheet) = 0;
  // Returns when the operator has left the preview.
  virtual void preview(const QString& sheet, const QString& caption) = 0;
  // The workbook stays open in front of the operator.
  virtual void handOver(const QString& sheet, const QString& caption) = 0;
};

// Starts the spreadsheet program on a workbook file.
using OpenSpreadsheet = std::function<std::unique_ptr<Spreadsheet>(const QString& path)>;

// The driver beside the program, loaded when it is first asked for: the program starts and runs
// without it. RunTimeError if it is not installed.
OpenSpreadsheet installedSpreadsheet(const QString& programFolder);
