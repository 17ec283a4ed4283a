#pragma once

#include "database/Value.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QStringList>
#include <cstdint>
#include <vector>

// All rows that a query returned, kept typed: sixteen bytes a value and the texts as UTF-8 in one block, so that
// large results cost little more than their data. An engine appends to it; a Recordset reads it.
class RowSet {
public:
  explicit RowSet(QStringList names = {}) : m_names(std::move(names)) {}

  const QStringList& names() const { return m_names; }
  std::int64_t rows() const { return m_names.isEmpty() ? 0 : std::int64_t(m_cells.size()) / m_names.size(); }
  // Index of a column by name, without regard to case; -1 if there is none.
  int column(QAnyStringView name) const;
  Value value(std::int64_t row, int column) const;
  // Memory in bytes.
  std::size_t size() const { return m_cells.size() * sizeof(Cell) + m_texts.size(); }
  // A text as the engine returned it, byte by byte; empty for any other value.
  QByteArray bytes(std::int64_t row, int column) const;

  // Values come row by row, each row from its first column to its last.
  void appendNull();
  void appendInteger(std::int64_t value);
  void appendReal(double value);
  void appendText(const char* utf8, std::int64_t size);

private:
  enum class Kind : std::uint8_t { Null, Integer, Real, Text };
  struct Cell {
    union {
      std::int64_t integer;
      double real;
      std::int64_t offset; // of a text in m_texts
    };
    std::uint32_t size;
    Kind kind;
  };

  const Cell& cell(std::int64_t row, int column) const;

  QStringList m_names;
  std::vector<Cell> m_cells;
  std::vector<char> m_texts;
};
