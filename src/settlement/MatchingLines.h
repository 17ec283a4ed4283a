#pragma once

#include "database/RowSet.h"
#include "session/DotType.h"

#include <QHash>

#include <vector>

struct Session;

// The lines of the matching list, read once and kept as the database returned them. The text of a cell is made on
// demand: most of tens of thousands of lines are never viewed.
class MatchingLines {
public:
  enum Column { BillCode = 1, Num = 7, GouDui = 24, ColumnCount };

  // Looks up the names of the attributes that the lines have.
  MatchingLines(Session& session, RowSet rows);

  int count() const { return int(m_rows.rows()); }
  // What a column of the list shows of a line, counted from 0. Values of the bill are shown on its first line only.
  QString text(int line, int column) const;

private:
  void findColumns();
  void markFirstLines();
  void nameAttributes(Session& session);

  RowSet m_rows;
  DotType m_decimals;
  int m_places[ColumnCount] = {}; // the field of each column of the list
  std::vector<bool> m_isFirst;
  QHash<QString, QString> m_attributes;
};
