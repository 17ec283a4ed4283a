#include "database/Sqlite.h"

#include <sqlite3.h>

namespace Sqlite {

void Release::operator()(sqlite3* database) const
{
  sqlite3_close_v2(database);
}

void Release::operator()(sqlite3_stmt* statement) const
{
  sqlite3_finalize(statement);
}

void Release::operator()(sqlite3_backup* backup) const
{
  sqlite3_backup_finish(backup);
}

void Release::operator()(unsigned char* bytes) const
{
  sqlite3_free(bytes);
}

DatabaseError errorOf(sqlite3* database)
{
  return {sqlite3_extended_errcode(database), QString::fromUtf8(sqlite3_errmsg(database))};
}

DatabaseResult<Statement> prepare(sqlite3* database, const QByteArray& sql)
{
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, sql.constData(), int(sql.size()) + 1, &prepared, nullptr) != SQLITE_OK)
    return tl::unexpected(errorOf(database));
  return Statement(prepared);
}

RowSet columnsOf(sqlite3_stmt* statement)
{
  QStringList names;
  for (int i = 0; i < sqlite3_column_count(statement); ++i)
    names.append(QString::fromUtf8(sqlite3_column_name(statement, i)));
  return RowSet(names);
}

void appendRow(RowSet& rows, sqlite3_stmt* statement)
{
  const int columns = sqlite3_column_count(statement);
  for (int i = 0; i < columns; ++i) {
    switch (sqlite3_column_type(statement, i)) {
    case SQLITE_NULL: rows.appendNull(); break;
    case SQLITE_INTEGER: rows.appendInteger(sqlite3_column_int64(statement, i)); break;
    case SQLITE_FLOAT: rows.appendReal(sqlite3_column_double(statement, i)); break;
    default: rows.appendText(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)), sqlite3_column_bytes(statement, i));
    }
  }
}

} // namespace Sqlite
