#pragma once

#include "screen/Control.h"

#include <QList>
#include <QModelIndex>
#include <QStringList>
#include <memory>

// Rows and columns of text below a row of headings and beside a column of their own: row 0 and column 0.
// It is not edited by itself: a CellEditor lies over it where it can be. Widths are twips (1/1440 inch);
// 0 hides a column.
//
// Always holds: rows and columns are at least 1; the current cell is inside the grid; every cell
// has a text.
class Grid : public Control {
  Q_OBJECT

public:
  static constexpr int RowHeight = 300;
  // Alignment values as they are stored: 1 left, 4 centre, 7 right, 9 the default.
  enum Alignment { AlignLeft = 1, AlignCenter = 4, AlignRight = 7, AlignDefault = 9 };

  Grid(QObject* parent, const QString& name);
  ~Grid() override;

  // The grid as views read it: the headings are its headers, and the cells begin at row 1 and column 1.
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

  // Empties every cell and sets widths, alignments and colours back; keeps the size.
  void clear();
  void addRow() { setRows(rows() + 1); }

  // An empty text for a cell that is not there; setting one that is not there does nothing.
  QString text(int row, int col) const;
  void setText(int row, int col, const QString& text);
  // Makes `texts` the rows from `firstRow` on, one list a row, in one step; the grid grows as needed.
  void setBlock(int firstRow, QList<QStringList> texts);
  // Makes `count` rows from `firstRow` on whose texts are made when they are asked for, and not kept: for
  // lists of tens of thousands of rows. `text` gets the row, counted from 0 at `firstRow`, and the
  // column. A row that is written to keeps texts of its own from then on. One such block at a time.
  void setRowsOnDemand(int firstRow, int count, std::function<QString(int row, int col)> text);

  int colWidth(int col) const;
  void setColWidth(int col, int width);
  int colAlignment(int col) const;
  void setColAlignment(int col, int alignment);
  // Marks a column whose figures are codes: by its default alignment they are not at the right as
  // amounts are.
  void setHoldsCodes(int col);
  // Where the text of a cell is in its cell.
  Qt::Alignment alignment(int row, int col) const;
  // Text colour as red + 256 green + 65536 blue; 0 is black. Headings and totals stay black.
  int cellColor(int row, int col) const;
  void setColColor(int col, int color);

  // The current cell. Moving it runs onCellChange if it moves.
  int row() const { return m_row; }
  int col() const { return m_col; }
  void setCurrent(int row, int col);

  // True for a list of rows: the current row as a whole is marked, and while the grid has the focus one
  // notch of the wheel is the key for a page.
  bool isRowList() const { return m_isRowList; }
  void setRowList(bool isList) { change(m_isRowList, isList); }
  // True if the last row holds totals and looks different from the rows above it.
  bool hasTotalsRow() const { return m_hasTotalsRow; }
  void setTotalsRow(bool has) { change(m_hasTotalsRow, has); }
  bool isTotals(int row) const { return m_hasTotalsRow && row == rows() - 1; }

  bool takesFocus() const override { return true; }

  std::function<void()> onMouseDown;
  // After onMouseDown, for the right button; the current cell stays where it is.
  std::function<void()> onRightButton;
  std::function<void()> onCellChange;
  // Key-down: runs after each key has had its effect on the current cell. What the handler opens is over
  // the cell that the key has moved to.
  std::function<void(const Key&)> onKeyDown;

  // Events of the operator.
  void clickCell(int row, int col);
  void doubleClickCell(int row, int col);
  void pressRightButton();
  // A turn of the wheel by `step` eighths of a degree (120 is one notch up) with no key held; a window
  // says nothing of the others.
  void wheel(int step);

signals:
  // The width or alignment of a column, or its heading if that is the corner.
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
  };

  bool contains(int row, int col) const { return row >= 0 && row < rows() && hasCol(col); }
  bool hasCol(int col) const { return col >= 0 && col < cols(); }
  // Runs a change of the rows or columns; the views start over after it.
  void reshape(const std::function<void()>& change);
  template <typename Value> void setOfColumn(int col, Value Column::*property, Value value);
  // The nearest column in a direction that is not hidden; the old one if there is none.
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
