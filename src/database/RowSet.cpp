#include "database/RowSet.h"

int RowSet::column(QStringView name) const
{
  for (int i = 0; i < m_names.size(); ++i)
    if (name.compare(m_names[i], Qt::CaseInsensitive) == 0)
      return i;
  return -1;
}

Value RowSet::value(std::int64_t row, int column) const
{
  const Cell& cell = m_cells[std::size_t(row) * std::size_t(m_names.size()) + std::size_t(column)];
  switch (cell.kind) {
  case Value::Kind::Null: return {};
  case Value::Kind::Integer: return Value::ofInteger(cell.integer);
  case Value::Kind::Real: return Value::ofReal(cell.real);
  case Value::Kind::Text: return Value::ofText(QString::fromUtf8(m_texts.data() + cell.offset, cell.size));
  }
  return {};
}

QByteArray RowSet::bytes(std::int64_t row, int column) const
{
  const Cell& cell = m_cells[std::size_t(row) * std::size_t(m_names.size()) + std::size_t(column)];
  return cell.kind == Value::Kind::Text ? QByteArray(m_texts.data() + cell.offset, cell.size) : QByteArray();
}

void RowSet::appendNull()
{
  m_cells.push_back({{0}, 0, Value::Kind::Null});
}

void RowSet::appendInteger(std::int64_t value)
{
  m_cells.push_back({{value}, 0, Value::Kind::Integer});
}

void RowSet::appendReal(double value)
{
  Cell cell{{0}, 0, Value::Kind::Real};
  cell.real = value;
  m_cells.push_back(cell);
}

void RowSet::appendText(const char* utf8, std::int64_t size)
{
  m_cells.push_back({{std::int64_t(m_texts.size())}, std::uint32_t(size), Value::Kind::Text});
  m_texts.insert(m_texts.end(), utf8, utf8 + size);
}
