#pragma once

#include "database/RowSet.h"
#include "platform/Trim.h"

#include <QAnyStringView>
#include <QString>

// The rows of one query with a cursor over them, as the suite's routines read them. A recordset of a statement that
// is not a query (insert, update, delete) or that failed is not open, and reading it throws RunTimeError: a failed
// read never becomes an empty text or a 0.
class Recordset {
public:
  Recordset() = default;
  explicit Recordset(RowSet rows) : m_rows(std::move(rows)) {}

  bool isOpen() const { return !m_rows.names().isEmpty(); }

  // After the last row; true at once for a recordset without rows.
  bool eof() const;
  void moveNext();
  std::int64_t recordCount() const;

  // A field of the current row, by its name without regard to case. RunTimeError if the recordset
  // is not open, there is no such field, or there is no current row.
  Value field(QAnyStringView name) const;
  QString text(QAnyStringView name) const { return field(name).toText(); }
  QString trimmed(QAnyStringView name) const { return Trim(text(name)); }
  // The bytes of a binary column.
  QByteArray bytes(QAnyStringView name) const;
  double number(QAnyStringView name) const { return field(name).toNumber(); }

  // All rows, for a list that shows them as they are.
  const RowSet& rows() const;
  // The same, for a list that keeps them; closes the recordset.
  RowSet takeRows();

private:
  void requireOpen() const;
  int requireColumn(QAnyStringView name) const;

  RowSet m_rows; // without columns if it is not open
  std::int64_t m_at = 0;
};
