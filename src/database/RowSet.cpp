#include "database/RowSet.h"

int RowSet::column(QAnyStringView name) const
{
  for (int i = 0; i < m_names.size(); ++i)
    if (QAnyStringView::compare(name, m_names[i], Qt::CaseInsensitive) == 0)
      return i;
  return -1;
}

const RowSet::Cell& RowSet::cell(std::int64_t row, int column) const
{
  return m_cells[std::size_t(row) * std::size_t(m_names.size()) + std::size_t(column)];
}

Value RowSet::value(std::int64_t row, int column) const
{
  const Cell& found = cell(row, column);
  switch (found.kind) {
  case Kind::Null: return {};
  case Kind::Integer: return Value(found.integer);
  case Kind::Real: return Value(found.real);
  case Kind::Text: return Value(QString::fromUtf8(m_texts.data() + found.offset, found.size));
  }
  return {};
}

QByteArray RowSet::bytes(std::int64_t row, int column) const
{
  const Cell& found = cell(row, column);
  return found.kind == Kind::Text ? QByteArray(m_texts.data() + found.offset, found.size) : QByteArray();
}

void RowSet::appendNull()
{
  m_cells.push_back({{0}, 0, Kind::Null});
}

void RowSet::appendInteger(std::int64_t value)
{
  m_cells.push_back({{value}, 0, Kind::Integer});
}

void RowSet::appendReal(double value)
{
  m_cells.push_back({{.real = value}, 0, Kind::Real});
}

void RowSet::appendText(const char* utf8, std::int64_t size)
{
  m_cells.push_back({{std::int64_t(m_texts.size())}, std::uint32_t(size), Kind::Text});
  m_texts.insert(m_texts.end(), utf8, utf8 + size);
}
