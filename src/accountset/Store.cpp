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

// A moment of a file is copied in steps of this many pages, between which writers have their turn. What a
// writer changes begins the copy again: after so many times it is made in one go, for which they wait.
constexpr int PagesAStep = 256;
constexpr int BeginningsInSteps = 4;

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

struct FileOpening {
  Database database; // null if it could not be opened
  QString reason;
};

FileOpening openDatabase(const QByteArray& path, int flags)
{
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.constData(), &opened, flags, nullptr);
  Database database(opened);
  if (code != SQLITE_OK || SqliteCollations::registerAll(opened) != SQLITE_OK)
    return {nullptr, QStringLiteral("不能打开账套文件：%1（%2）").arg(QString::fromUtf8(path), QString::fromUtf8(sqlite3_errmsg(opened)))};
  sqlite3_busy_timeout(opened, LockWaitMs);
  return {std::move(database), {}};
}

Store::Opening storeOf(FileOpening opening)
{
  if (!opening.database)
    return {nullptr, opening.reason};
  return {std::make_unique<FileStore>(std::move(opening.database)), {}};
}

// All pages of one file into another. A step that finds the file changed has begun again with its first page.
int copyPages(sqlite3_backup* backup)
{
  int code = SQLITE_OK;
  int copied = 0;
  for (int beginnings = 1; code == SQLITE_OK;) {
    code = sqlite3_backup_step(backup, beginnings > BeginningsInSteps ? -1 : PagesAStep);
    const int done = sqlite3_backup_pagecount(backup) - sqlite3_backup_remaining(backup);
    beginnings += done <= copied;
    copied = done;
    if (code == SQLITE_OK)
      sqlite3_sleep(1);
  }
  return code;
}

// The usual wait looks at the lock ten times a second, and between the writes of busy operators may never find it free.
int lookAgain(void*, int looks)
{
  constexpr int PauseMs = 2;
  sqlite3_sleep(PauseMs);
  return looks * PauseMs < LockWaitMs;
}

// In a file without a name, which is gone when it is closed, in whatever way.
FileOpening copyOfFile(const QString& path)
{
  const FileOpening source = openDatabase(path.toUtf8(), SQLITE_OPEN_READWRITE);
  FileOpening copy = openDatabase("", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  if (!source.database || !copy.database)
    return {nullptr, source.reason + copy.reason};
  sqlite3_busy_handler(source.database.get(), lookAgain, nullptr);
  sqlite3_backup* const backup = sqlite3_backup_init(copy.database.get(), "main", source.database.get(), "main");
  const int code = backup ? copyPages(backup) : SQLITE_ERROR;
  if (sqlite3_backup_finish(backup) != SQLITE_OK || code != SQLITE_DONE)
    return {nullptr, QStringLiteral("不能读取账套文件：%1（%2）").arg(path, QString::fromUtf8(sqlite3_errstr(code)))};
  return copy;
}

Store::Opening openServer(const ServerAddress& server)
{
  Odbc::Opening opening = Odbc::open(server);
  if (!opening.connection)
    return {nullptr, opening.error.description};
  if (opening.connection->kind() != Odbc::Kind::PostgreSql)
    return {nullptr, QStringLiteral("只能在 PostgreSQL 服务器上建立和复制账套")};
  return {std::make_unique<ServerStore>(std::move(opening.connection)), {}};
}

} // namespace

QString Store::runAll(const QStringList& statements)
{
  for (const QString& statement : statements)
    if (const StatementResult result = run(statement); result.error)
      return result.error->description;
  return {};
}

Store::Opening Store::open(const AccountSetLocation& location)
{
  return location.isServer() ? openServer(location.server) : storeOf(openDatabase(location.file.toUtf8(), SQLITE_OPEN_READWRITE));
}

Store::Opening Store::openMoment(const AccountSetLocation& location)
{
  if (!location.isServer())
    return storeOf(copyOfFile(location.file));
  Opening opening = openServer(location.server);
  // The transaction sees what was committed when its first statement began, and ends with the connection.
  if (opening.store)
    opening.reason =
        opening.store->runAll({QStringLiteral("begin isolation level repeatable read, read only"), QStringLiteral("select 1")});
  if (!opening.reason.isEmpty())
    opening.store.reset();
  return opening;
}
