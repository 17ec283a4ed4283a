#include "samplefirm/RowWriter.h"

#include <QStringList>

#include <sqlite3.h>

bool RowWriter::Value::bind(sqlite3_stmt* statement, int place) const
{
  if (m_bytes)
    return sqlite3_bind_blob(statement, place, m_bytes->constData(), int(m_bytes->size()), SQLITE_STATIC) == SQLITE_OK;
  // A view of nothing has no address, which would be stored as null.
  const void* const text = m_text.isEmpty() ? static_cast<const void*>(u"") : m_text.utf16();
  return sqlite3_bind_text16(statement, place, text, int(m_text.size() * 2), SQLITE_STATIC) == SQLITE_OK;
}

void RowWriter::insert(const char* table, std::initializer_list<Value> values)
{
  if (!m_result)
    return;
  sqlite3_stmt* const statement = statementFor(table, values.size());
  bool good = statement;
  int place = 0;
  for (const Value& value : values)
    good = good && value.bind(statement, ++place);
  if (!good || sqlite3_step(statement) != SQLITE_DONE)
    m_result = tl::unexpected(QLatin1String(table) + QStringLiteral(": ") + Sqlite::errorOf(m_database).description);
  else
    sqlite3_reset(statement);
}

void RowWriter::insert(const char* table, const Statement& values)
{
  if (!m_result)
    return;
  const QByteArray sql = QByteArray("insert into ") + table + " values(" + values.sql().toUtf8() + ")";
  if (sqlite3_exec(m_database, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
    m_result = tl::unexpected(QLatin1String(table) + QStringLiteral(": ") + Sqlite::errorOf(m_database).description);
}

sqlite3_stmt* RowWriter::statementFor(const char* table, std::size_t columns)
{
  Sqlite::Statement& kept = m_statements[table];
  if (!kept) {
    const QByteArray sql = QByteArray("insert into ") + table + " values(?" + QByteArray(",?").repeated(qsizetype(columns) - 1) + ")";
    kept = Sqlite::prepare(m_database, sql).value_or(nullptr);
  }
  return kept.get();
}
