#pragma once

#include "screen/Control.h"

#include <QList>
#include <QModelIndex>
#include <QStringList>
#include <memory>

// Rows and columns of text below a row of headings and beside a column of their own: row 0 and column 0.
// Cells are edited in a CellEditor that lies over the grid. Widths are twips (1/1440 inch); 0 hides a
// column.
//
// Invariant: there is at least one row and one column; the current cell is inside the grid; every cell has
// a text.
class Grid : public Control {
  Q_OBJECT

public:
  static constexpr int RowHeight = 300;
  // Alignment values as they are stored: 1 left, 4 centre, 7 right, 9 the default.
  enum Alignment { AlignLeft = 1, AlignCenter = 4, AlignRight = 7, AlignDefault = 9 };

  Grid(QObject* parent, QAnyStringView name);
  ~Grid() override;

  // The model for views: the headings are its headers, and its cells begin at row 1 and column 1 of the grid.
  // Every change of the rows or columns resets it.
  QAbstractItemModel& model() const;
  // Invalid for a heading.
  QModelIndex indexOf(int row, int col) const;
  // Role of a header of the model: the width of its column.
  static constexpr int WidthRole = Qt::UserRole;

  int rows() const { return int(m_rows.size()); }
  int cols() const { return int(m_columns.size()); }
  void setRows(int rows);
  void setCols(int cols);

  // Empties every cell and resets widths, alignments and colours; keeps the size.
  void clear();
  void addRow() { setRows(rows() + 1); }

  // The text of a cell outside the grid is empty; setting it does nothing.
  QString text(int row, int col) const;
  void setText(int row, int col, const QString& text);
  // Replaces the rows from `firstRow` on by `texts`, one list a row, in one step; the grid grows as needed.
  void setBlock(int firstRow, QList<QStringList> texts);
  // Makes `count` rows from `firstRow` on whose texts are computed on demand and not stored: for lists of
  // tens of thousands of rows. `text` is called with the row, counted from 0 at `firstRow`, and the column.
  // A row that is written to stores its texts from then on. There is one such block at a time.
  void setRowsOnDemand(int firstRow, int count, std::function<QString(int row, int col)> text);

  int colWidth(int col) const;
  void setColWidth(int col, int width);
  int colAlignment(int col) const;
  void setColAlignment(int col, int alignment);
  // Marks a column whose digits are codes: its default alignment is left, not right as for amounts.
  void setHoldsCodes(int col);
  // Marks a column of amounts or codes, see TextBox::isLatin.
  void setLatin(int col);
  bool isLatin(int col) const { return hasCol(col) && m_columns[col].isLatin; }
  // The alignment of the text in its cell.
  Qt::Alignment alignment(int row, int col) const;
  // Text colour as red + 256 green + 65536 blue; 0 is black. Headings and totals are always black.
  int cellColor(int row, int col) const;
  void setColColor(int col, int color);

  // The current cell. onCellChange runs when it moves.
  int row() const { return m_row; }
  int col() const { return m_col; }
  void setCurrent(int row, int col);
  // Moves to the next column that shows in a direction, 1 or -1, but not onto column 0. False if there is none.
  bool moveToShownColumn(int step);
  bool hasShownColumn(int step) const { return stepCol(m_col, step) != m_col; }

  // True for a list of rows: the whole current row is highlighted, and while the grid has the focus one
  // notch of the wheel acts as PageUp or PageDown.
  bool isRowList() const { return m_isRowList; }
  void setRowList(bool isList) { change(m_isRowList, isList); }
  // True if the last row holds totals and looks different from the others.
  bool hasTotalsRow() const { return m_hasTotalsRow; }
  void setTotalsRow(bool has) { change(m_hasTotalsRow, has); }
  bool isTotals(int row) const { return m_hasTotalsRow && row == rows() - 1; }

  bool takesFocus() const override { return true; }

  std::function<void()> onMouseDown;
  // After onMouseDown, for the right button; the current cell stays where it is.
  std::function<void()> onRightButton;
  std::function<void()> onCellChange;
  // Runs for every key not consumed by onKey, after the current cell has moved.
  std::function<void(const Key&)> onKeyDown;

  // Events of the user.
  void clickCell(int row, int col);
  void doubleClickCell(int row, int col);
  void pressRightButton();
  // A turn of the wheel by `step` eighths of a degree (120 is one notch up). Turns with a modifier are not
  // reported.
  void wheel(int step);

signals:
  // The width, alignment or colour of a column, or the text of the corner.
  void columnChanged(int col);
  void currentChanged();

protected:
  void edit(const Key& key) override;

private:
  class Model;
  struct Column {
    int width = 960;
    int alignment = AlignDefault;
    int color = 0;
    bool holdsCodes = false;
    bool isLatin = false;
  };

  bool contains(int row, int col) const { return row >= 0 && row < rows() && hasCol(col); }
  bool hasCol(int col) const { return col >= 0 && col < cols(); }
  // Runs a change of the rows or columns as a reset of the model.
  void reshape(const std::function<void()>& change);
  template <typename Value> void setOfColumn(int col, Value Column::* property, Value value);
  // The nearest visible column in a direction; `from` if there is none.
  int stepCol(int from, int step) const;

  std::unique_ptr<Model> m_model;
  QList<QStringList> m_rows; // empty for a row on demand
  std::function<QString(int row, int col)> m_demanded;
  int m_firstDemanded = 0;
  QList<Column> m_columns;
  int m_row = 1;
  int m_col = 1;
  bool m_isRowList = false;
  bool m_hasTotalsRow = false;
};
