#include "desktop/GridModel.h"

#include <QColor>
#include <QFont>

namespace {

// Whether a text reads as an amount, and so stands at the right of a column that says nothing else. A
// date, and the dashes of a place without an amount, are none.
bool isAmount(QStringView text)
{
  if (text.startsWith(u'-'))
    text = text.mid(1);
  if (text.isEmpty())
    return false;
  for (const QChar character : text)
    if (!character.isDigit() && character != u',' && character != u'.')
      return false;
  return true;
}

constexpr QRgb TotalsGround = 0xffe8edf2;

} // namespace

GridModel::GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), m_grid(grid)
{
  takeOver();
  connect(&grid, &Grid::layoutChanged, this, &GridModel::layoutMoved);
  connect(&grid, &Grid::cellChanged, this, &GridModel::cellMoved);
  // A form may go ahead of its window, and then has nothing left to take over.
  connect(&grid, &QObject::destroyed, this, [this] { m_isBehind = false; });
}

void GridModel::takeOver()
{
  m_fixedRows = qMin(m_grid.fixedRows(), 1);
  m_fixedCols = qMin(m_grid.fixedCols(), 1);
  m_rows = m_grid.rows() - m_fixedRows;
  m_cols = m_grid.cols() - m_fixedCols;
}

void GridModel::layoutMoved()
{
  if (m_isBehind)
    return;
  m_isBehind = true;
  QMetaObject::invokeMethod(this, &GridModel::settle, Qt::QueuedConnection);
}

void GridModel::settle()
{
  if (!m_isBehind)
    return;
  beginResetModel();
  takeOver();
  m_isBehind = false;
  endResetModel();
}

void GridModel::cellMoved(int row, int col)
{
  if (m_isBehind)
    return;
  if (const QModelIndex cell = indexOf(row, col); cell.isValid())
    emit dataChanged(cell, cell);
  else if (row < m_fixedRows && col >= m_fixedCols)
    emit headerDataChanged(Qt::Horizontal, col - m_fixedCols, col - m_fixedCols);
  else if (col < m_fixedCols && row >= m_fixedRows)
    emit headerDataChanged(Qt::Vertical, row - m_fixedRows, row - m_fixedRows);
}

QVariant GridModel::alignment(int row, int col) const
{
  Qt::Alignment across = isAmount(m_grid.text(row, col)) && !m_grid.holdsCodes(col) ? Qt::AlignRight : Qt::AlignLeft;
  switch (m_grid.colAlignment(col)) {
  case Grid::AlignLeft: across = Qt::AlignLeft; break;
  case Grid::AlignCenter: across = Qt::AlignHCenter; break;
  case Grid::AlignRight: across = Qt::AlignRight; break;
  default: break;
  }
  return QVariant::fromValue(across | Qt::AlignVCenter);
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
  const int row = rowOf(index.row());
  const int col = colOf(index.column());
  switch (role) {
  case Qt::DisplayRole: return m_grid.text(row, col);
  case Qt::TextAlignmentRole: return alignment(row, col);
  case Qt::ForegroundRole:
    if (const int color = m_grid.cellColor(row, col))
      return QColor(color & 0xff, color >> 8 & 0xff, color >> 16 & 0xff);
    return {};
  case Qt::FontRole:
  case Qt::BackgroundRole: return isTotals(row) ? totalsLook(role) : QVariant();
  default: return {};
  }
}

bool GridModel::isTotals(int row) const
{
  return m_grid.hasTotalsRow() && row == m_grid.rows() - 1;
}

QVariant GridModel::totalsLook(int role)
{
  if (role == Qt::BackgroundRole)
    return QColor::fromRgb(TotalsGround);
  QFont bold;
  bold.setBold(true);
  return bold;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
  const bool isHeading = orientation == Qt::Horizontal;
  switch (role) {
  case Qt::DisplayRole: return isHeading ? m_grid.text(0, colOf(section)) : m_grid.text(rowOf(section), 0);
  case Qt::TextAlignmentRole: return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
  case WidthRole: return isHeading ? QVariant(m_grid.colWidth(colOf(section))) : QVariant(m_grid.colWidth(0));
  default: return {};
  }
}
