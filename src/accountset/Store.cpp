#include "accountset/Store.h"

#include "database/Odbc.h"
#include "database/SqliteCollations.h"

#include <sqlite3.h>

namespace {

struct Close {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

constexpr int LockWaitMs = 30'000;

class FileStore : public Store {
public:
  explicit FileStore(Database database) : m_database(std::move(database)) {}

  StatementResult run(const QString& sql) override
  {
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), utf8.constData(), int(utf8.size()), &prepared, nullptr) != SQLITE_OK)
      return failure();
    const Statement statement(prepared);
    StatementResult result;
    const int columns = sqlite3_column_count(prepared);
    result.isQuery = columns > 0;
    QStringList names;
    for (int i = 0; i < columns; ++i)
      names.append(QString::fromUtf8(sqlite3_column_name(prepared, i)));
    result.rows = RowSet(names);
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(prepared)) == SQLITE_ROW)
      for (int i = 0; i < columns; ++i)
        append(result.rows, prepared, i);
    return step == SQLITE_DONE ? std::move(result) : failure();
  }

  QString hexOf(const QString& column) const override { return "hex(" + column + ")"; }
  QString binaryLiteral(const QString& hex) const override { return "x'" + hex + "'"; }
  QString sumOf(const QString& column) const override
  {
    return "cast(coalesce(sum(cast(round(" + column + "*1000000) as integer)),0) as text)";
  }

private:
  static void append(RowSet& rows, sqlite3_stmt* statement, int column)
  {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL: return rows.appendNull();
    case SQLITE_INTEGER: return rows.appendInteger(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT: return rows.appendReal(sqlite3_column_double(statement, column));
    default:
      rows.appendText(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)), sqlite3_column_bytes(statement, column));
    }
  }

  StatementResult failure() const
  {
    return StatementResult::failed(sqlite3_extended_errcode(m_database.get()), QString::fromUtf8(sqlite3_errmsg(m_database.get())));
  }

  Database m_database;
};

class ServerStore : public Store {
public:
  explicit ServerStore(std::unique_ptr<Odbc> connection) : m_connection(std::move(connection)) {}

  StatementResult run(const QString& sql) override { return m_connection->run(sql.toUtf8()); }

  QString hexOf(const QString& column) const override { return "encode(" + column + ",'hex')"; }
  QString binaryLiteral(const QString& hex) const override { return "'\\x" + hex + "'"; }
  QString sumOf(const QString& column) const override { return "cast(coalesce(sum(round(" + column + "*1000000)),0) as text)"; }

private:
  std::unique_ptr<Odbc> m_connection;
};

Store::Opening openFile(const QString& path)
{
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  Database database(opened);
  if (code != SQLITE_OK || SqliteCollations::registerAll(opened) != SQLITE_OK)
    return {nullptr, QStringLiteral("不能打开账套文件：%1（%2）").arg(path, QString::fromUtf8(sqlite3_errmsg(opened)))};
  sqlite3_busy_timeout(opened, LockWaitMs);
  return {std::make_unique<FileStore>(std::move(database)), {}};
}

} // namespace

QString Store::runAll(const QStringList& statements)
{
  for (const QString& statement : statements)
    if (const StatementResult result = run(statement); result.error)
      return result.error->description;
  return {};
}

Store::Opening Store::open(const Place& place)
{
  if (!place.isServer())
    return openFile(place.file);
  Odbc::Opening opening = Odbc::open(place.server);
  if (!opening.connection)
    return {nullptr, opening.error.description};
  if (opening.connection->kind() != Odbc::Kind::PostgreSql)
    return {nullptr, QStringLiteral("只能在 PostgreSQL 服务器上建立和复制账套")};
  return {std::make_unique<ServerStore>(std::move(opening.connection)), {}};
}
