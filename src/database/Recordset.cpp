#include "database/Recordset.h"

#include "platform/RunTimeError.h"

#include <utility>

using namespace Qt::StringLiterals;

void Recordset::requireOpen() const
{
  if (!isOpen())
    throw RunTimeError(RunTimeError::Closed, u"对象关闭时，不允许操作"_s);
}

bool Recordset::eof() const
{
  requireOpen();
  return m_at >= m_rows.rows();
}

void Recordset::moveNext()
{
  requireOpen();
  if (m_at < m_rows.rows())
    ++m_at;
}

std::int64_t Recordset::recordCount() const
{
  requireOpen();
  return m_rows.rows();
}

int Recordset::requireColumn(QAnyStringView name) const
{
  requireOpen();
  const int column = m_rows.column(name);
  if (column < 0)
    throw RunTimeError(RunTimeError::NoSuchField, u"在对应所需名称或序数的集合中，未找到项目：%1"_s.arg(name.toString()));
  if (m_at >= m_rows.rows())
    throw RunTimeError(RunTimeError::NoCurrentRecord, u"没有当前记录"_s);
  return column;
}

Value Recordset::field(QAnyStringView name) const
{
  const int column = requireColumn(name);
  return m_rows.value(m_at, column);
}

QByteArray Recordset::bytes(QAnyStringView name) const
{
  const int column = requireColumn(name);
  return m_rows.bytes(m_at, column);
}

const RowSet& Recordset::rows() const
{
  requireOpen();
  return m_rows;
}

RowSet Recordset::takeRows()
{
  requireOpen();
  return std::exchange(m_rows, RowSet());
}
