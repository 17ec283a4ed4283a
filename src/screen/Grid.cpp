#include "screen/Grid.h"

#include "screen/Form.h"

Grid::Grid(QObject* parent, const QString& name) : Control(parent, name)
{
  setCols(2);
  setRows(2);
  setCurrent(m_fixedRows, m_fixedCols);
}

void Grid::setRows(int rows)
{
  const int wanted = qMax(1, rows);
  if (wanted == m_rows.size())
    return;
  if (wanted < m_rows.size()) {
    m_rows.resize(wanted);
    m_colors.removeIf([wanted](const auto& cell) { return cell.key().first >= wanted; });
  }
  m_rows.reserve(wanted);
  while (m_rows.size() < wanted)
    m_rows.append(Row{QStringList(cols())});
  keepCurrentInside();
  emit layoutChanged();
}

void Grid::setCols(int cols)
{
  const int wanted = qMax(1, cols);
  if (wanted == m_columns.size())
    return;
  m_columns.resize(wanted);
  for (Row& row : m_rows)
    if (row.demand < 0)
      row.texts.resize(wanted);
  m_colors.removeIf([wanted](const auto& cell) { return cell.key().second >= wanted; });
  keepCurrentInside();
  emit layoutChanged();
}

void Grid::setFixed(int rows, int cols)
{
  m_fixedRows = rows;
  m_fixedCols = cols;
  emit layoutChanged();
}

void Grid::clear()
{
  for (Row& row : m_rows)
    row = Row{QStringList(cols())};
  m_demanded = nullptr;
  m_columns.fill(Column());
  m_colors.clear();
  emit layoutChanged();
}

void Grid::removeRow(int row)
{
  if (row < 0 || row >= rows() || rows() == 1)
    return;
  m_rows.removeAt(row);
  QHash<QPair<int, int>, int> kept;
  for (auto cell = m_colors.cbegin(); cell != m_colors.cend(); ++cell)
    if (cell.key().first != row)
      kept.insert({cell.key().first - (cell.key().first > row ? 1 : 0), cell.key().second}, cell.value());
  m_colors = kept;
  keepCurrentInside();
  emit layoutChanged();
}

QString Grid::text(int row, int col) const
{
  if (!contains(row, col))
    return {};
  const Row& at = m_rows[row];
  return at.demand < 0 ? at.texts[col] : m_demanded(at.demand, col);
}

void Grid::setText(int row, int col, const QString& text)
{
  if (!contains(row, col) || this->text(row, col) == text)
    return;
  Row& at = m_rows[row];
  if (at.demand >= 0) {
    for (int each = 0; each < cols(); ++each)
      at.texts.append(m_demanded(at.demand, each));
    at.demand = -1;
  }
  at.texts[col] = text;
  emit cellChanged(row, col);
}

void Grid::setBlock(int firstRow, QList<QStringList> texts)
{
  reserveRows(firstRow, texts.size());
  for (QStringList& line : texts) {
    if (line.size() != cols())
      line.resize(cols());
    if (firstRow == m_rows.size())
      m_rows.append(Row());
    m_rows[firstRow].texts = std::move(line);
    m_rows[firstRow].demand = -1;
    ++firstRow;
  }
  emit layoutChanged();
}

void Grid::setRowsOnDemand(int firstRow, int count, std::function<QString(int row, int col)> text)
{
  m_demanded = std::move(text);
  reserveRows(firstRow, count);
  for (int row = 0; row < count; ++row) {
    if (firstRow + row == m_rows.size())
      m_rows.append(Row());
    m_rows[firstRow + row].texts.clear();
    m_rows[firstRow + row].demand = row;
  }
  emit layoutChanged();
}

// Room for rows from `firstRow` on; those ahead of it are there afterwards.
void Grid::reserveRows(int firstRow, qsizetype count)
{
  m_rows.reserve(firstRow + count);
  while (m_rows.size() < firstRow)
    m_rows.append(Row{QStringList(cols())});
}

int Grid::rowHeight(int row) const
{
  return row >= 0 && row < rows() ? m_rows[row].height : 0;
}

void Grid::setRowHeight(int row, int height)
{
  if (row < 0 || row >= rows() || m_rows[row].height == height)
    return;
  m_rows[row].height = qMax(0, height);
  emit layoutChanged();
}

int Grid::colWidth(int col) const
{
  return col >= 0 && col < cols() ? m_columns[col].width : 0;
}

void Grid::setColWidth(int col, int width)
{
  if (col < 0 || col >= cols() || m_columns[col].width == width)
    return;
  m_columns[col].width = qMax(0, width);
  emit layoutChanged();
}

int Grid::colAlignment(int col) const
{
  return col >= 0 && col < cols() ? m_columns[col].alignment : int(AlignDefault);
}

void Grid::setColAlignment(int col, int alignment)
{
  if (col < 0 || col >= cols() || m_columns[col].alignment == alignment)
    return;
  m_columns[col].alignment = alignment;
  emit layoutChanged();
}

bool Grid::holdsCodes(int col) const
{
  return col >= 0 && col < cols() && m_columns[col].holdsCodes;
}

void Grid::setHoldsCodes(int col)
{
  if (col < 0 || col >= cols() || m_columns[col].holdsCodes)
    return;
  m_columns[col].holdsCodes = true;
  emit layoutChanged();
}

int Grid::cellColor(int row, int col) const
{
  return m_colors.value({row, col}, 0);
}

void Grid::setCellColor(int row, int col, int color)
{
  if (!contains(row, col) || cellColor(row, col) == color)
    return;
  m_colors.insert({row, col}, color);
  emit cellChanged(row, col);
}

void Grid::setCurrent(int row, int col)
{
  const int toRow = qBound(0, row, rows() - 1);
  const int toCol = qBound(0, col, cols() - 1);
  if (toRow == m_row && toCol == m_col)
    return;
  m_row = toRow;
  m_col = toCol;
  emit currentChanged();
  if (onCellChange)
    onCellChange();
}

void Grid::setFirstShown(int topRow, int leftCol)
{
  m_topRow = topRow;
  m_leftCol = leftCol;
}

void Grid::setMarksRow(bool marks)
{
  m_marksRow = marks;
  emit layoutChanged();
}

void Grid::setTotalsRow(bool has)
{
  m_hasTotalsRow = has;
  emit layoutChanged();
}

void Grid::clickCell(int row, int col)
{
  if (!isReachable() || !contains(row, col))
    return;
  form().handle([&] {
    if (onMouseDown)
      onMouseDown();
    form().setFocus(*this);
    setCurrent(row, col);
    clicked();
  });
}

void Grid::doubleClickCell(int row, int col)
{
  clickCell(row, col);
  doubleClick();
}

void Grid::pressRightButton()
{
  if (!isReachable())
    return;
  form().handle([&] {
    if (onMouseDown)
      onMouseDown();
    if (onRightButton)
      onRightButton();
  });
}

void Grid::wheel(int step)
{
  if (isReachable() && onWheel)
    form().handle([&] { onWheel(step); });
}

void Grid::edit(const Key& key)
{
  static constexpr int Page = 10;
  const int lastRow = rows() - 1;
  switch (key.code) {
  case Key::Up: setCurrent(stepRow(m_row, -1), m_col); break;
  case Key::Down: setCurrent(stepRow(m_row, 1), m_col); break;
  case Key::Left: setCurrent(m_row, stepCol(m_col, -1)); break;
  case Key::Right: setCurrent(m_row, stepCol(m_col, 1)); break;
  case Key::PageUp: setCurrent(qMax(qMin(m_fixedRows, lastRow), m_row - Page), m_col); break;
  case Key::PageDown: setCurrent(qMin(lastRow, m_row + Page), m_col); break;
  case Key::Home: setCurrent(m_row, stepCol(m_fixedCols - 1, 1)); break;
  case Key::End: setCurrent(m_row, stepCol(cols(), -1)); break;
  default: break;
  }
  if (onKeyDown)
    onKeyDown(key);
}

void Grid::keepCurrentInside()
{
  m_row = qBound(0, m_row, qMax(0, rows() - 1));
  m_col = qBound(0, m_col, qMax(0, cols() - 1));
}

int Grid::stepRow(int from, int step) const
{
  for (int row = from + step; row >= m_fixedRows && row < rows(); row += step)
    if (m_rows[row].height > 0)
      return row;
  return from;
}

int Grid::stepCol(int from, int step) const
{
  for (int col = from + step; col >= m_fixedCols && col < cols(); col += step)
    if (m_columns[col].width > 0)
      return col;
  return qBound(0, from, cols() - 1);
}
