#pragma once

#include "screen/Grid.h"

#include <QAbstractTableModel>

// A Grid as the window's table view reads it: the fixed row is the horizontal header, the fixed column
// the vertical one, the rest are the cells. Texts stay in the grid and are fetched as they are painted.
//
// A grid tells of its layout one step at a time, often row by row. The steps are gathered and taken
// over in one reset, at the next turn of the event loop or when settle() is called.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

public:
  // Role of a column's header: its width in twips, as the form has set it.
  static constexpr int WidthRole = Qt::UserRole;

  GridModel(Grid& grid, QObject* parent);

  // Takes the grid's layout over now if it has changed.
  void settle();

  // Places are the grid's, fixed ones counted; the index is invalid for a fixed place.
  QModelIndex indexOf(int row, int col) const { return index(row - m_fixedRows, col - m_fixedCols); }
  int rowOf(int section) const { return section + m_fixedRows; }
  int colOf(int section) const { return section + m_fixedCols; }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_rows; }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_cols; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  void layoutMoved();
  void cellMoved(int row, int col);
  void takeOver();
  QVariant alignment(int row, int col) const;
  bool isTotals(int row) const;
  static QVariant totalsLook(int role);

  Grid& m_grid;
  int m_fixedRows = 0;
  int m_fixedCols = 0;
  int m_rows = 0;
  int m_cols = 0;
  bool m_isBehind = false;
};
