#pragma once

#include "database/Sqlite.h"
#include "database/Statement.h"

#include <QByteArray>
#include <QString>

#include <concepts>
#include <initializer_list>
#include <map>

// Writes rows into the tables of a new account set, by position as the family's programs do. Every
// value is given as text, or as bytes; the columns make numbers of what is one. The first failure is kept,
// and nothing is written after it.
class RowWriter {
public:
  // A value that somebody else keeps alive.
  class Value {
  public:
    template <typename Text>
      requires std::convertible_to<const Text&, QStringView>
    Value(const Text& text) : m_text(text)
    {
    }
    Value(const QByteArray& bytes) : m_bytes(&bytes) {}

  private:
    friend class RowWriter;
    bool bind(sqlite3_stmt* statement, int place) const;

    QStringView m_text;
    const QByteArray* m_bytes = nullptr;
  };

  explicit RowWriter(sqlite3* database) : m_database(database) {}

  // One row with a value for each column of the table, in their order.
  void insert(const char* table, std::initializer_list<Value> values);
  // The same with the values as SQL.
  void insert(const char* table, const Statement& values);

  // The first failure, if there was one.
  [[nodiscard]] const tl::expected<void, QString>& result() const { return m_result; }

private:
  sqlite3_stmt* statementFor(const char* table, std::size_t columns);

  sqlite3* m_database;
  std::map<QByteArray, Sqlite::Statement> m_statements;
  tl::expected<void, QString> m_result;
};
