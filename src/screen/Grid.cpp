#include "screen/Grid.h"

#include "screen/Form.h"

#include <QAbstractTableModel>

#include <algorithm>

// An adapter without data of its own: Control and QAbstractItemModel are both QObjects.
class Grid::Model : public QAbstractTableModel {
public:
  explicit Model(const Grid& ofGrid) : m_grid(ofGrid) {}

  using QAbstractTableModel::beginResetModel;
  using QAbstractTableModel::endResetModel;

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_grid.rows() - 1; }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_grid.cols() - 1; }

  QVariant data(const QModelIndex& index, int role) const override
  {
    switch (role) {
    case Qt::DisplayRole: return m_grid.text(index.row() + 1, index.column() + 1);
    case Qt::TextAlignmentRole: return QVariant::fromValue(m_grid.alignment(index.row() + 1, index.column() + 1));
    default: return {};
    }
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override
  {
    const bool isAbove = orientation == Qt::Horizontal;
    switch (role) {
    case Qt::DisplayRole: return isAbove ? m_grid.text(0, section + 1) : m_grid.text(section + 1, 0);
    case WidthRole: return m_grid.colWidth(isAbove ? section + 1 : 0);
    default: return {};
    }
  }

  void cellChanged(int row, int col)
  {
    if (const QModelIndex cell = index(row - 1, col - 1); cell.isValid())
      emit dataChanged(cell, cell);
    else if (row == 0)
      emit headerDataChanged(Qt::Horizontal, col - 1, col - 1);
    else
      emit headerDataChanged(Qt::Vertical, row - 1, row - 1);
  }

private:
  const Grid& m_grid;
};

namespace {

// Whether a text is an amount, which is right-aligned unless the column says otherwise. A date is not, nor
// are the dashes of a field without an amount.
bool isAmount(QStringView text)
{
  if (text.startsWith(u'-'))
    text = text.mid(1);
  return !text.isEmpty() && std::all_of(text.begin(), text.end(),
                                        [](QChar character) { return character.isDigit() || character == u',' || character == u'.'; });
}

} // namespace

Grid::Grid(QObject* parent, QAnyStringView name) : Control(parent, name), m_model(std::make_unique<Model>(*this))
{
  setCols(2);
  setRows(2);
  setCurrent(1, 1);
}

Grid::~Grid() = default;

QAbstractItemModel& Grid::model() const
{
  return *m_model;
}

QModelIndex Grid::indexOf(int row, int col) const
{
  return m_model->index(row - 1, col - 1);
}

void Grid::reshape(const std::function<void()>& change)
{
  m_model->beginResetModel();
  change();
  m_row = qBound(0, m_row, qMax(0, rows() - 1));
  m_col = qBound(0, m_col, qMax(0, cols() - 1));
  m_model->endResetModel();
}

void Grid::setRows(int rows)
{
  const int wanted = qMax(1, rows);
  if (wanted != m_rows.size())
    reshape([&] { m_rows.resize(wanted, QStringList(cols())); });
}

void Grid::setCols(int cols)
{
  const int wanted = qMax(1, cols);
  if (wanted == m_columns.size())
    return;
  reshape([&] {
    m_columns.resize(wanted);
    for (QStringList& row : m_rows)
      if (!row.isEmpty())
        row.resize(wanted);
  });
}

void Grid::clear()
{
  reshape([this] {
    m_rows.fill(QStringList(cols()));
    m_columns.fill(Column());
    m_demanded = nullptr;
  });
}

QString Grid::text(int row, int col) const
{
  if (!contains(row, col))
    return {};
  return m_rows[row].isEmpty() ? m_demanded(row - m_firstDemanded, col) : m_rows[row][col];
}

void Grid::setText(int row, int col, const QString& text)
{
  if (!contains(row, col) || this->text(row, col) == text)
    return;
  if (m_rows[row].isEmpty()) {
    QStringList own;
    for (int each = 0; each < cols(); ++each)
      own.append(this->text(row, each));
    m_rows[row] = own;
  }
  m_rows[row][col] = text;
  if (row == 0 && col == 0)
    emit columnChanged(0);
  else
    m_model->cellChanged(row, col);
}

void Grid::setBlock(int firstRow, QList<QStringList> texts)
{
  reshape([&] {
    m_rows.resize(qMax(m_rows.size(), firstRow + texts.size()), QStringList(cols()));
    for (QStringList& line : texts) {
      line.resize(cols());
      m_rows[firstRow++] = std::move(line);
    }
  });
}

void Grid::setRowsOnDemand(int firstRow, int count, std::function<QString(int row, int col)> text)
{
  reshape([&] {
    m_demanded = std::move(text);
    m_firstDemanded = firstRow;
    m_rows.resize(qMax<qsizetype>(m_rows.size(), firstRow), QStringList(cols()));
    m_rows.resize(qMax<qsizetype>(m_rows.size(), firstRow + count));
    std::fill_n(m_rows.begin() + firstRow, count, QStringList());
  });
}

template <typename Value> void Grid::setOfColumn(int col, Value Column::* property, Value value)
{
  if (!hasCol(col) || m_columns[col].*property == value)
    return;
  m_columns[col].*property = value;
  emit columnChanged(col);
}

int Grid::colWidth(int col) const
{
  return hasCol(col) ? m_columns[col].width : 0;
}

void Grid::setColWidth(int col, int width)
{
  setOfColumn(col, &Column::width, qMax(0, width));
}

int Grid::colAlignment(int col) const
{
  return hasCol(col) ? m_columns[col].alignment : int(AlignDefault);
}

void Grid::setColAlignment(int col, int alignment)
{
  setOfColumn(col, &Column::alignment, alignment);
}

void Grid::setHoldsCodes(int col)
{
  setOfColumn(col, &Column::holdsCodes, true);
}

void Grid::setLatin(int col)
{
  setOfColumn(col, &Column::isLatin, true);
}

Qt::Alignment Grid::alignment(int row, int col) const
{
  switch (colAlignment(col)) {
  case AlignLeft: return Qt::AlignLeft | Qt::AlignVCenter;
  case AlignCenter: return Qt::AlignCenter;
  case AlignRight: return Qt::AlignRight | Qt::AlignVCenter;
  default: return (isAmount(text(row, col)) && !m_columns[col].holdsCodes ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
  }
}

int Grid::cellColor(int row, int col) const
{
  return contains(row, col) && row > 0 && !isTotals(row) ? m_columns[col].color : 0;
}

void Grid::setColColor(int col, int color)
{
  setOfColumn(col, &Column::color, color);
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

bool Grid::moveToShownColumn(int step)
{
  const bool moves = hasShownColumn(step);
  if (moves)
    setCurrent(m_row, stepCol(m_col, step));
  return moves;
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
  static constexpr int Notch = 120;
  if (m_isRowList && form().focused() == this && qAbs(step) == Notch)
    press({step < 0 ? Key::PageDown : Key::PageUp, {}});
}

void Grid::edit(const Key& key)
{
  static constexpr int Page = 10;
  switch (key.code) {
  case Key::Up: setCurrent(m_row > 1 ? m_row - 1 : m_row, m_col); break;
  case Key::Down: setCurrent(m_row + 1, m_col); break;
  case Key::Left: setCurrent(m_row, stepCol(m_col, -1)); break;
  case Key::Right: setCurrent(m_row, stepCol(m_col, 1)); break;
  case Key::PageUp: setCurrent(qMax(1, m_row - Page), m_col); break;
  case Key::PageDown: setCurrent(m_row + Page, m_col); break;
  case Key::Home: setCurrent(m_row, stepCol(0, 1)); break;
  case Key::End: setCurrent(m_row, stepCol(cols(), -1)); break;
  default: break;
  }
  if (onKeyDown)
    onKeyDown(key);
}

int Grid::stepCol(int from, int step) const
{
  for (int col = from + step; col >= 1 && col < cols(); col += step)
    if (m_columns[col].width > 0)
      return col;
  return qBound(0, from, cols() - 1);
}
