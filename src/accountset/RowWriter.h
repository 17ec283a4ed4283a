#pragma once

#include <QByteArray>
#include <QString>

#include <concepts>
#include <initializer_list>
#include <map>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

// Writes rows into the tables of a new account set, by position as the family's programs do. Every
// value is given as text, or as bytes; the columns make numbers of what is one. The first failure is kept,
// and nothing is written after it.
class RowWriter {
public:
  // A value that somebody else keeps alive.
  class Value {
  public:
    template <typename Text>
    requires std::convertible_to<const Text&, QStringView> Value(const Text& text) : m_text(text) {}
    Value(const QByteArray& bytes) : m_bytes(&bytes) {}

  private:
    friend class RowWriter;
    bool bind(sqlite3_stmt* statement, int place) const;

    QStringView m_text;
    const QByteArray* m_bytes = nullptr;
  };

  explicit RowWriter(sqlite3* database);
  ~RowWriter();

  // One row with a value for each column of the table, in their order.
  void insert(const char* table, std::initializer_list<Value> values);

  // Why a row could not be written; empty if all were.
  const QString& error() const { return m_error; }

private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

  sqlite3_stmt* statementFor(const char* table, std::size_t columns);
  void fail(const char* table);

  sqlite3* m_database;
  std::map<QByteArray, Statement> m_statements;
  QString m_error;
};
