#include "accountset/AccountSet.h"

#include "accountset/EmbeddedSchema.h"
#include "accountset/RowWriter.h"
#include "accountset/SampleFirm.h"
#include "database/SqliteCollations.h"

#include <QFile>

#include <memory>
#include <sqlite3.h>

namespace AccountSet {
namespace {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
struct FreeBytes {
  void operator()(unsigned char* bytes) const { sqlite3_free(bytes); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;
using Bytes = std::unique_ptr<unsigned char, FreeBytes>;

// In memory, so that the file is written in one piece and a failure leaves nothing behind.
Database openInMemory()
{
  sqlite3* opened = nullptr;
  sqlite3_open_v2(":memory:", &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY, nullptr);
  return Database(opened);
}

// Empty if the statements ran.
QString run(sqlite3* database, const QByteArray& sql)
{
  const int code = sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr);
  return code == SQLITE_OK ? QString() : QString::fromUtf8(sqlite3_errmsg(database));
}

// In one transaction; empty if it worked.
QString fill(sqlite3* database, Content content)
{
  if (SqliteCollations::registerAll(database) != SQLITE_OK)
    return QString::fromUtf8(sqlite3_errmsg(database));
  if (const QString reason = run(database, "begin;" + EmbeddedSchema::sql(Schema::allTables()).toUtf8()); !reason.isEmpty())
    return reason;
  if (content == Content::Demo) {
    RowWriter rows(database);
    SampleFirm::write(rows);
    if (!rows.error().isEmpty())
      return rows.error();
  }
  return run(database, "commit;");
}

QString writeNew(const QString& filePath, const Bytes& bytes, qint64 size)
{
  QFile file(filePath);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
    return QStringLiteral("不能建立账套文件：%1（%2）").arg(filePath, file.errorString());
  if (file.write(reinterpret_cast<const char*>(bytes.get()), size) == size && file.flush())
    return {};
  const QString reason = file.errorString();
  file.remove();
  return QStringLiteral("不能写入账套文件：%1（%2）").arg(filePath, reason);
}

} // namespace

QString create(const QString& filePath, Content content)
{
  if (QFile::exists(filePath))
    return QStringLiteral("账套文件已存在：%1").arg(filePath);
  const Database database = openInMemory();
  if (!database)
    return QStringLiteral("内存不足");
  if (const QString reason = fill(database.get(), content); !reason.isEmpty())
    return QStringLiteral("不能建立账套的数据表：%1").arg(reason);
  sqlite3_int64 size = 0;
  const Bytes bytes(sqlite3_serialize(database.get(), "main", &size, 0));
  if (!bytes)
    return QStringLiteral("内存不足");
  return writeNew(filePath, bytes, size);
}

} // namespace AccountSet
