#pragma once

#include "screen/Control.h"

#include <QHash>
#include <QList>
#include <QStringList>

// Rows and columns of text with fixed rows above and fixed columns at the left. It is not edited by
// itself: a CellEditor lies over it where it can be. Indices count from 0 and include the fixed
// ones. Widths and heights are twips (1/1440 inch); 0 hides a column or row.
//
// Always holds: rows and columns are at least 1; the current cell is inside the grid; every cell
// has a text.
class Grid : public Control {
  Q_OBJECT

public:
  static constexpr int DefaultRowHeight = 300;
  static constexpr int DefaultColWidth = 960;
  // Alignment values as they are stored: 1 left, 4 centre, 7 right, 9 the default.
  enum Alignment { AlignLeft = 1, AlignCenter = 4, AlignRight = 7, AlignDefault = 9 };

  Grid(QObject* parent, const QString& name);

  int rows() const { return int(m_rows.size()); }
  int cols() const { return int(m_columns.size()); }
  void setRows(int rows);
  void setCols(int cols);
  int fixedRows() const { return m_fixedRows; }
  int fixedCols() const { return m_fixedCols; }
  void setFixed(int rows, int cols);

  // Empties every cell and sets widths, heights, alignments and colours back; keeps the size.
  void clear();
  void addRow() { setRows(rows() + 1); }
  void removeRow(int row);

  // An empty text for a cell that is not there; setting one that is not there does nothing.
  QString text(int row, int col) const;
  void setText(int row, int col, const QString& text);
  // Makes `texts` the rows from `firstRow` on, one list a row, in one step; the grid grows as needed.
  void setBlock(int firstRow, QList<QStringList> texts);
  // Makes `count` rows from `firstRow` on whose texts are made when they are asked for, and not kept: for
  // lists of tens of thousands of rows. `text` gets the row, counted from 0 at `firstRow`, and the
  // column. A row that is written to keeps texts of its own from then on. One such block at a time.
  void setRowsOnDemand(int firstRow, int count, std::function<QString(int row, int col)> text);

  int rowHeight(int row) const;
  void setRowHeight(int row, int height);
  int colWidth(int col) const;
  void setColWidth(int col, int width);
  int colAlignment(int col) const;
  void setColAlignment(int col, int alignment);
  // True of a column whose figures are codes: by its default alignment they do not stand at the right as
  // amounts do.
  bool holdsCodes(int col) const;
  void setHoldsCodes(int col);
  // Text colour as red + 256 green + 65536 blue; 0 is black.
  int cellColor(int row, int col) const;
  void setCellColor(int row, int col, int color);

  // The current cell. Moving it runs onCellChange if it moves.
  int row() const { return m_row; }
  int col() const { return m_col; }
  void setCurrent(int row, int col);
  // First row and column shown below and beside the fixed ones; the window tells it.
  int topRow() const { return m_topRow; }
  int leftCol() const { return m_leftCol; }
  void setFirstShown(int topRow, int leftCol);

  // True if the current row as a whole is to be marked.
  bool marksRow() const { return m_marksRow; }
  void setMarksRow(bool marks);
  // True if the last row holds totals and is to be told apart from the rows above it.
  bool hasTotalsRow() const { return m_hasTotalsRow; }
  void setTotalsRow(bool has);

  bool takesFocus() const override { return true; }

  std::function<void()> onMouseDown;
  // Behind onMouseDown, for the right button; the current cell stays where it is.
  std::function<void()> onRightButton;
  std::function<void()> onCellChange;
  // Key-down: runs for every key ahead of its effect on the current cell, then again the key is
  // offered to onKey. What the handler opens stands over the cell that the key has moved to.
  std::function<void(const Key&)> onKeyDown;
  std::function<void(int step)> onWheel;

  // Events of the operator.
  void clickCell(int row, int col);
  void doubleClickCell(int row, int col);
  void pressRightButton();
  // A turn of the wheel by `step` eighths of a degree (120 is one notch up) with no key held; a window
  // says nothing of the others.
  void wheel(int step);

signals:
  void cellChanged(int row, int col);
  void layoutChanged();
  void currentChanged();

protected:
  void edit(const Key& key) override;

private:
  struct Row {
    QStringList texts; // none for a row on demand
    int height = DefaultRowHeight;
    int demand = -1; // which row of the block on demand it is
  };
  struct Column {
    int width = DefaultColWidth;
    int alignment = AlignDefault;
    bool holdsCodes = false;
  };

  bool contains(int row, int col) const { return row >= 0 && row < rows() && col >= 0 && col < cols(); }
  void reserveRows(int firstRow, qsizetype count);
  void keepCurrentInside();
  // The nearest row or column in a direction that is not hidden and not fixed; the old one if there is none.
  int stepRow(int from, int step) const;
  int stepCol(int from, int step) const;

  QList<Row> m_rows;
  std::function<QString(int row, int col)> m_demanded;
  QList<Column> m_columns;
  QHash<QPair<int, int>, int> m_colors;
  int m_fixedRows = 1;
  int m_fixedCols = 1;
  int m_row = 1;
  int m_col = 1;
  int m_topRow = 1;
  int m_leftCol = 1;
  bool m_marksRow = false;
  bool m_hasTotalsRow = false;
};
