#include "accountset/AccountSet.h"

#include "accountset/SchemaSql.h"
#include "database/Sqlite.h"
#include "database/SqliteCollations.h"

#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace AccountSet {
namespace {

using Result = tl::expected<void, QString>;
using Bytes = Sqlite::Handle<unsigned char>;

// In memory, so that the file is written in one piece and a failure leaves no file.
Sqlite::Database openInMemory()
{
  sqlite3* opened = nullptr;
  sqlite3_open_v2(":memory:", &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY, nullptr);
  return Sqlite::Database(opened);
}

Result run(sqlite3* database, const QByteArray& sql)
{
  if (sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
    return tl::unexpected(Sqlite::errorOf(database).description);
  return {};
}

// In one transaction.
Result makeTables(sqlite3* database, const Fill& fill)
{
  if (SqliteCollations::registerAll(database) != SQLITE_OK)
    return tl::unexpected(Sqlite::errorOf(database).description);
  const QString tables = SchemaSql::statements(Schema::allTables(), SchemaSql::Embedded).join(u';');
  return run(database, "begin;" + tables.toUtf8()).and_then([&] { return fill ? fill(database) : Result(); }).and_then([&] {
    return run(database, "commit");
  });
}

Result writeNew(const QString& filePath, const Bytes& bytes, qint64 size)
{
  QFile file(filePath);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
    return tl::unexpected(u"不能建立账套文件：%1（%2）"_s.arg(filePath, file.errorString()));
  if (file.write(reinterpret_cast<const char*>(bytes.get()), size) == size && file.flush())
    return {};
  const QString reason = file.errorString();
  file.remove();
  return tl::unexpected(u"不能写入账套文件：%1（%2）"_s.arg(filePath, reason));
}

} // namespace

Result create(const QString& filePath, const Fill& fill)
{
  if (QFile::exists(filePath))
    return tl::unexpected(u"账套文件已存在：%1"_s.arg(filePath));
  const Sqlite::Database database = openInMemory();
  if (!database)
    return tl::unexpected(u"内存不足"_s);
  if (const auto made = makeTables(database.get(), fill); !made)
    return tl::unexpected(u"不能建立账套的数据表：%1"_s.arg(made.error()));
  sqlite3_int64 size = 0;
  const Bytes bytes(sqlite3_serialize(database.get(), "main", &size, 0));
  if (!bytes)
    return tl::unexpected(u"内存不足"_s);
  return writeNew(filePath, bytes, size);
}

} // namespace AccountSet
