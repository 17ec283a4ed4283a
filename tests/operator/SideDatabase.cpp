#include "SideDatabase.h"

#include "PlaceText.h"
#include "Unmet.h"
#include "database/SqliteCollations.h"
#include "platform/NumberText.h"

#include <memory>
#include <sqlite3.h>

namespace SideDatabase {
namespace {

struct Close {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

constexpr int LockWaitMs = 5000;

Unmet failure(sqlite3* database)
{
  return Unmet(QStringLiteral("the statement fails: %1").arg(QString::fromUtf8(sqlite3_errmsg(database))));
}

Database open(const QString& path)
{
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  Database database(opened);
  if (code != SQLITE_OK || SqliteCollations::registerAll(opened) != SQLITE_OK)
    throw failure(opened);
  sqlite3_busy_timeout(opened, LockWaitMs);
  return database;
}

Statement prepare(sqlite3* database, const QByteArray& sql)
{
  sqlite3_stmt* prepared = nullptr;
  const char* behind = nullptr;
  if (sqlite3_prepare_v2(database, sql.constData(), int(sql.size()), &prepared, &behind) != SQLITE_OK)
    throw failure(database);
  Statement statement(prepared);
  if (!statement)
    throw Unmet(QStringLiteral("there is no statement"));
  if (const QByteArray rest = QByteArray(behind).trimmed(); !rest.isEmpty())
    throw Unmet(QStringLiteral("there is a second statement: %1").arg(QString::fromUtf8(rest)));
  return statement;
}

QString textOf(sqlite3_stmt* statement, int column)
{
  switch (sqlite3_column_type(statement, column)) {
  case SQLITE_NULL: return QStringLiteral("NULL");
  case SQLITE_FLOAT: return NumberText::ofDouble(sqlite3_column_double(statement, column));
  default: return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
  }
}

} // namespace

QList<QStringList> run(const QString& path, const QString& sql)
{
  const Database database = open(path);
  const Statement statement = prepare(database.get(), sql.toUtf8());
  QList<QStringList> rows;
  int step = SQLITE_ROW;
  while ((step = sqlite3_step(statement.get())) == SQLITE_ROW) {
    QStringList row;
    for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
      row.append(textOf(statement.get(), i));
    rows.append(row);
  }
  if (step != SQLITE_DONE)
    throw failure(database.get());
  return rows;
}

} // namespace SideDatabase
