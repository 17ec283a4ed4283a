#include "accountset/RowWriter.h"

#include <QStringList>

#include <sqlite3.h>

namespace {

bool bind(sqlite3_stmt* statement, int place, QStringView value)
{
  // A view of nothing has no address, which would be stored as null.
  const void* const text = value.isEmpty() ? static_cast<const void*>(u"") : value.utf16();
  return sqlite3_bind_text16(statement, place, text, int(value.size() * 2), SQLITE_STATIC) == SQLITE_OK;
}

} // namespace

RowWriter::RowWriter(sqlite3* database) : m_database(database) {}

RowWriter::~RowWriter() = default;

void RowWriter::Finalize::operator()(sqlite3_stmt* statement) const
{
  sqlite3_finalize(statement);
}

void RowWriter::insert(const char* table, std::initializer_list<QStringView> values)
{
  if (!m_error.isEmpty())
    return;
  sqlite3_stmt* const statement = statementFor(table, values.size());
  bool good = statement;
  int place = 0;
  for (const QStringView value : values)
    good = good && bind(statement, ++place, value);
  if (!good || sqlite3_step(statement) != SQLITE_DONE)
    return fail(table);
  sqlite3_reset(statement);
}

sqlite3_stmt* RowWriter::statementFor(const char* table, std::size_t columns)
{
  Statement& kept = m_statements[table];
  if (!kept) {
    const QByteArray sql = QByteArray("insert into ") + table + " values(?" + QByteArray(",?").repeated(qsizetype(columns) - 1) + ")";
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v2(m_database, sql.constData(), int(sql.size()), &prepared, nullptr);
    kept.reset(prepared);
  }
  return kept.get();
}

void RowWriter::fail(const char* table)
{
  m_error = QStringLiteral("%1: %2").arg(QLatin1String(table), QString::fromUtf8(sqlite3_errmsg(m_database)));
}
