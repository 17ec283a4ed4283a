#pragma once

#include "platform/RunTimeError.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <tl/expected.hpp>

template <typename Value> using SpreadsheetResult = tl::expected<Value, RunTimeError>;

// For the handlers of screens, which a run-time error ends: the result of a call that has to succeed.
template <typename Value> Value orThrow(SpreadsheetResult<Value> result)
{
  if (!result)
    throw RunTimeError(result.error());
  if constexpr (!std::is_void_v<Value>)
    return std::move(*result);
}

// A workbook open in the spreadsheet program, which is another process and may be missing, refuse, hang or die at any
// time: every call returns an error then, after a bounded wait. Rows and columns count from 1, and sheet names are
// case-insensitive. Destroying it closes the workbook unsaved, unless it was handed over.
class Workbook {
public:
  struct Cell {
    int row;
    int column;
  };

  virtual ~Workbook() = default;

  [[nodiscard]] virtual SpreadsheetResult<QStringList> sheetNames() = 0;
  // The texts of the first rows and columns of a sheet, row by row; a number is empty.
  [[nodiscard]] virtual SpreadsheetResult<QList<QStringList>> texts(const QString& sheet, int rows, int columns) = 0;

  // Puts a block of texts, as many columns in each row, into the cells from `row` and `column` on. Every text is kept
  // as it is, and its cell is formatted as text from then on.
  [[nodiscard]] virtual SpreadsheetResult<void> enterTexts(const QString& sheet, int row, int column, const QList<QStringList>& block) = 0;
  // Puts amounts into the cells from `row` downwards. Each becomes a number, so that the cell's format and sums work,
  // unless its cell is formatted as text, it is not an amount ("见附件"), or the number would lose digits (20 of them).
  // In an unformatted cell it shows the decimals that it has.
  [[nodiscard]] virtual SpreadsheetResult<void> enterAmounts(const QString& sheet, int row, int column, const QStringList& amounts) = 0;
  // The heights of the first rows and the widths of the first columns, in twips; a column of 0 keeps its own. Rows
  // with a given height are not measured when texts are entered, which costs the most.
  [[nodiscard]] virtual SpreadsheetResult<void> setSizes(const QString& sheet, int rows, int rowHeight, const QList<int>& columnWidths) = 0;
  // Breaks the lines of these cells, and makes their rows as high as they need.
  [[nodiscard]] virtual SpreadsheetResult<void> showWhole(const QString& sheet, const QList<Cell>& cells) = 0;
  // New rows before `row`, each looking like the one above.
  [[nodiscard]] virtual SpreadsheetResult<void> insertRows(const QString& sheet, int row, int count) = 0;
  [[nodiscard]] virtual SpreadsheetResult<void> deleteRow(const QString& sheet, int row) = 0;

  enum class Finish {
    Print,   // this sheet alone on the default printer; an error if the machine has none
    Preview, // shows how this sheet prints, and returns at once
    HandOver // leaves the workbook open to the user, whatever becomes of this object
  };
  // Without a caption the window keeps the title that it has.
  [[nodiscard]] virtual SpreadsheetResult<void> finish(const QString& sheet, Finish how, const QString& caption) = 0;
  // Whether the user still has the preview open. False without a display, and if the program does not answer.
  virtual bool isInPreview() = 0;
};

// The interface of a driver. It keeps the program running from one workbook to the next and ends it with itself; what
// was handed over stays.
class SpreadsheetDriver {
public:
  virtual ~SpreadsheetDriver() = default;

  [[nodiscard]] virtual SpreadsheetResult<std::unique_ptr<Workbook>> open(const QString& path) = 0;
  // A new workbook, whose only sheet is the first.
  [[nodiscard]] virtual SpreadsheetResult<std::unique_ptr<Workbook>> create() = 0;
};

// The spreadsheet program of this machine. Its driver is a library beside the executable, loaded when the first
// workbook is requested: a program that prints nothing runs without it.
class Spreadsheet {
public:
  // `driverFolder` is set if the driver is not beside the executable.
  explicit Spreadsheet(const QString& driverFolder = {});
  ~Spreadsheet();

  // An error if there is no driver or no spreadsheet program, or if it can't open the file.
  [[nodiscard]] SpreadsheetResult<std::unique_ptr<Workbook>> open(const QString& path);
  [[nodiscard]] SpreadsheetResult<std::unique_ptr<Workbook>> create();

private:
  SpreadsheetResult<SpreadsheetDriver*> driver();

  QString m_driverFolder;
  std::unique_ptr<SpreadsheetDriver> m_driver;
};
