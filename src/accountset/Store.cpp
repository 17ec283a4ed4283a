#include "accountset/Store.h"

#include "database/Odbc.h"
#include "database/Sqlite.h"
#include "database/SqliteCollations.h"

#include <QFile>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int LockWaitMs = 30'000;

// A snapshot of a file is copied in steps of this many pages, between which others can write. A write restarts the
// copy: after this many restarts it is made in one go, while writers wait.
constexpr int PagesAStep = 256;
constexpr int BeginningsInSteps = 4;

class FileStore : public Store {
public:
  explicit FileStore(Sqlite::Database database) : m_database(std::move(database)) {}

  tl::expected<RowSet, QString> run(const QString& sql) override
  {
    const auto statement = Sqlite::prepare(m_database.get(), sql.toUtf8());
    if (!statement)
      return tl::unexpected(statement.error().description);
    RowSet rows = Sqlite::columnsOf(statement->get());
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement->get())) == SQLITE_ROW)
      Sqlite::appendRow(rows, statement->get());
    if (step != SQLITE_DONE)
      return tl::unexpected(Sqlite::errorOf(m_database.get()).description);
    return rows;
  }

  QString hexOf(const QString& column) const override { return u"hex("_s + column + u')'; }
  QString binaryLiteral(const QString& hex) const override { return u"x'"_s + hex + u'\''; }
  QString sumOf(const QString& column) const override
  {
    return u"cast(coalesce(sum(cast(round("_s + column + u"*1000000) as integer)),0) as text)"_s;
  }

private:
  Sqlite::Database m_database;
};

QString wordsOf(const DatabaseError& error)
{
  return error.description;
}

class ServerStore : public Store {
public:
  explicit ServerStore(std::unique_ptr<Odbc> connection) : m_connection(std::move(connection)) {}

  tl::expected<RowSet, QString> run(const QString& sql) override { return m_connection->run(sql.toUtf8()).map_error(wordsOf); }

  QString hexOf(const QString& column) const override { return u"encode("_s + column + u",'hex')"_s; }
  QString binaryLiteral(const QString& hex) const override { return u"'\\x"_s + hex + u'\''; }
  QString sumOf(const QString& column) const override { return u"cast(coalesce(sum(round("_s + column + u"*1000000)),0) as text)"_s; }

private:
  std::unique_ptr<Odbc> m_connection;
};

tl::expected<Sqlite::Database, QString> openDatabase(const QByteArray& path, int flags)
{
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.constData(), &opened, flags, nullptr);
  Sqlite::Database database(opened);
  if (code != SQLITE_OK || SqliteCollations::registerAll(opened) != SQLITE_OK)
    return tl::unexpected(u"不能打开账套文件：%1（%2）"_s.arg(QString::fromUtf8(path), QString::fromUtf8(sqlite3_errmsg(opened))));
  sqlite3_busy_timeout(opened, LockWaitMs);
  return database;
}

Store::Opened storeOf(tl::expected<Sqlite::Database, QString> database)
{
  return std::move(database).map(
      [](Sqlite::Database&& opened) -> std::unique_ptr<Store> { return std::make_unique<FileStore>(std::move(opened)); });
}

// Copies all pages of a file into another. A step that finds the file changed has restarted with the first page.
int copyPages(sqlite3* from, sqlite3* to)
{
  const Sqlite::Handle<sqlite3_backup> handle(sqlite3_backup_init(to, "main", from, "main"));
  sqlite3_backup* const backup = handle.get();
  int code = backup ? SQLITE_OK : SQLITE_ERROR;
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

// The usual wait polls the lock ten times a second, and between the writes of busy operators may never find it free.
int lookAgain(void*, int looks)
{
  constexpr int PauseMs = 2;
  sqlite3_sleep(PauseMs);
  return looks * PauseMs < LockWaitMs;
}

// An empty path is that of an unnamed file, which disappears when it is closed, in whatever way.
tl::expected<Sqlite::Database, QString> copyOfFile(const QString& from, const QString& to)
{
  auto source = openDatabase(from.toUtf8(), SQLITE_OPEN_READWRITE);
  auto copy = openDatabase(to.toUtf8(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  if (!source || !copy)
    return source ? std::move(copy) : std::move(source);
  sqlite3_busy_handler(source->get(), lookAgain, nullptr);
  if (const int code = copyPages(source->get(), copy->get()); code != SQLITE_DONE)
    return tl::unexpected(u"不能读取账套文件：%1（%2）"_s.arg(from, QString::fromUtf8(sqlite3_errstr(code))));
  return copy;
}

Store::Opened openServer(const ServerAddress& server)
{
  auto connection = Odbc::open(server);
  if (!connection)
    return tl::unexpected(connection.error().description);
  if ((*connection)->kind() != Odbc::Kind::PostgreSql)
    return tl::unexpected(u"只能在 PostgreSQL 服务器上建立和复制账套"_s);
  return std::make_unique<ServerStore>(*std::move(connection));
}

} // namespace

tl::expected<void, QString> Store::runAll(const QStringList& statements)
{
  for (const QString& statement : statements)
    if (const auto result = run(statement); !result)
      return tl::unexpected(result.error());
  return {};
}

Store::Opened Store::open(const AccountSetLocation& location)
{
  return location.isServer() ? openServer(location.server) : storeOf(openDatabase(location.file.toUtf8(), SQLITE_OPEN_READWRITE));
}

Store::Opened Store::openMoment(const AccountSetLocation& location)
{
  if (!location.isServer())
    return storeOf(copyOfFile(location.file, {}));
  auto store = openServer(location.server);
  // The transaction sees what was committed when its first statement began, and ends with the connection.
  if (store)
    if (const auto begun = (*store)->runAll({u"begin isolation level repeatable read, read only"_s, u"select 1"_s}); !begun)
      return tl::unexpected(begun.error());
  return store;
}

tl::expected<void, QString> Store::copyFile(const QString& from, const QString& to)
{
  // Made here, so that a file that appears meanwhile is not taken for ours.
  QFile file(to);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
    return tl::unexpected(u"不能写入文件：%1（%2）"_s.arg(to, file.errorString()));
  file.close();
  if (const auto copied = copyOfFile(from, to); !copied) {
    QFile::remove(to);
    return tl::unexpected(copied.error());
  }
  return {};
}
