#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

// A workbook open in the spreadsheet program, which is another process and may be missing, refuse, hang
// or die at any time: every call throws RunTimeError then, after a bounded wait. Rows and columns count
// from 1, and sheets go by name without regard to case. Letting go of a workbook closes it unsaved,
// unless it was handed over.
class Workbook {
public:
  struct Cell {
    int row;
    int column;
  };

  virtual ~Workbook() = default;

  virtual QStringList sheetNames() = 0;
  // The texts of the first rows and columns of a sheet, row by row; a number is empty.
  virtual QList<QStringList> texts(const QString& sheet, int rows, int columns) = 0;

  // Puts a block of texts, as many columns in each row, into the cells from `row` and `column` on. Every
  // text stays the text it is, and its cell is formatted as text from then on.
  virtual void enterTexts(const QString& sheet, int row, int column, const QList<QStringList>& block) = 0;
  // Puts amounts into the cells from `row` downwards. Each becomes a number, so that the cell's format and
  // sums work, unless its cell is formatted as text, it is no amount ("见附件"), or the number would lose
  // digits (20 of them). In a cell that nobody formatted it shows the decimals that it has.
  virtual void enterAmounts(const QString& sheet, int row, int column, const QStringList& amounts) = 0;
  // The heights of the first rows and the widths of the first columns, in twips; a column of 0 keeps its own.
  // Rows that have got a height are not measured when texts come in, which is what costs most.
  virtual void setSizes(const QString& sheet, int rows, int rowHeight, const QList<int>& columnWidths) = 0;
  // Breaks the lines of these cells, and makes their rows as high as they need.
  virtual void showWhole(const QString& sheet, const QList<Cell>& cells) = 0;
  // New rows before `row`, each looking like the one above.
  virtual void insertRows(const QString& sheet, int row, int count) = 0;
  virtual void deleteRow(const QString& sheet, int row) = 0;

  // Prints this sheet alone on the default printer; a machine without a printer refuses.
  virtual void print(const QString& sheet) = 0;
  // Shows how this sheet prints, and returns at once.
  virtual void preview(const QString& sheet, const QString& caption) = 0;
  // Whether the operator is still in the preview. Nobody is where there is no display.
  virtual bool isInPreview() = 0;
  // The workbook stays open in front of the operator, whatever becomes of this object. Without a caption
  // its window keeps the title that it has.
  virtual void handOver(const QString& sheet, const QString& caption) = 0;
};

// What a driver offers. It keeps the program running from one workbook to the next and ends it with
// itself; what was handed over stays.
class SpreadsheetDriver {
public:
  virtual ~SpreadsheetDriver() = default;

  virtual std::unique_ptr<Workbook> open(const QString& path) = 0;
  // A new workbook, whose only sheet is the first.
  virtual std::unique_ptr<Workbook> create() = 0;
};

// The spreadsheet program of this machine. Its driver lies in a library beside the executable and is
// loaded when the first workbook is asked for: a program that prints nothing starts and runs without.
class Spreadsheet {
public:
  // The folder of the driver, for those who keep it elsewhere.
  explicit Spreadsheet(const QString& driverFolder = {});
  ~Spreadsheet();

  // RunTimeError if there is no driver or no spreadsheet program, or if it can't open the file.
  std::unique_ptr<Workbook> open(const QString& path);
  std::unique_ptr<Workbook> create();

private:
  SpreadsheetDriver& driver();

  QString m_driverFolder;
  std::unique_ptr<SpreadsheetDriver> m_driver;
};
