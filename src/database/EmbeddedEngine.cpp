#include "database/EmbeddedEngine.h"

#include "database/AccountSetFile.h"
#include "database/DialectTranslator.h"
#include "database/SqliteArithmetic.h"
#include "database/SqliteCollations.h"

#include <sqlite3.h>

namespace {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

DatabaseError errorOf(sqlite3* database)
{
  return {sqlite3_extended_errcode(database), QString::fromUtf8(sqlite3_errmsg(database))};
}

// Only reading and writing rows: no schema, no pragma, no other file.
int authorize(void*, int action, const char*, const char*, const char*, const char*)
{
  switch (action) {
  case SQLITE_SELECT:
  case SQLITE_READ:
  case SQLITE_INSERT:
  case SQLITE_UPDATE:
  case SQLITE_DELETE:
  case SQLITE_FUNCTION:
  case SQLITE_RECURSIVE:
  case SQLITE_TRANSACTION: return SQLITE_OK;
  default: return SQLITE_DENY;
  }
}

void appendRow(RowSet& rows, sqlite3_stmt* statement, int columns)
{
  for (int i = 0; i < columns; ++i) {
    switch (sqlite3_column_type(statement, i)) {
    case SQLITE_NULL: rows.appendNull(); break;
    case SQLITE_INTEGER: rows.appendInteger(sqlite3_column_int64(statement, i)); break;
    case SQLITE_FLOAT: rows.appendReal(sqlite3_column_double(statement, i)); break;
    default: rows.appendText(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)), sqlite3_column_bytes(statement, i));
    }
  }
}

QStringList columnNames(sqlite3_stmt* statement)
{
  QStringList names;
  for (int i = 0; i < sqlite3_column_count(statement); ++i)
    names.append(QString::fromUtf8(sqlite3_column_name(statement, i)));
  return names;
}

class SqliteEngine : public Engine {
public:
  SqliteEngine(Database database, std::chrono::milliseconds longestStatement)
      : m_database(std::move(database)), m_longestStatement(longestStatement)
  {
  }

  bool isOpen() const override { return m_database != nullptr; }

  StatementResult execute(const QString& sql) override
  {
    const auto translation = DialectTranslator::forEmbedded(sql);
    if (!translation.refusal.isEmpty())
      return StatementResult::failed(SQLITE_AUTH, translation.refusal);
    const QByteArray utf8 = translation.sql.toUtf8();
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), utf8.constData(), int(utf8.size()) + 1, &prepared, nullptr) != SQLITE_OK)
      return failure();
    const Statement statement(prepared);
    StatementResult result;
    result.isQuery = sqlite3_stmt_readonly(prepared) && sqlite3_column_count(prepared) > 0;
    result.rows = RowSet(columnNames(prepared));
    const int columns = sqlite3_column_count(prepared);
    const AccountSetFile::Share share(m_database.get(), m_longestStatement);
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(prepared)) == SQLITE_ROW && share.hasRoomFor(result.rows))
      appendRow(result.rows, prepared, columns);
    if (step == SQLITE_DONE)
      return result;
    const auto excess = share.excess(result.rows);
    return excess ? StatementResult::failed(excess->number, excess->description) : failure();
  }

private:
  StatementResult failure() const
  {
    const DatabaseError error = errorOf(m_database.get());
    return StatementResult::failed(error.number, error.description);
  }

  Database m_database;
  std::chrono::milliseconds m_longestStatement;
};

int setUp(sqlite3* database, std::chrono::milliseconds lockWait)
{
  int code = sqlite3_busy_timeout(database, int(lockWait.count()));
  if (code == SQLITE_OK)
    code = sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  if (code == SQLITE_OK)
    code = sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // "extra" also syncs the folder when a journal has gone: a journal that a power cut brings back would undo the
  // statement that was acknowledged last. The cache holds an account set of usual size: lists that look up each of
  // their rows read no page twice.
  if (code == SQLITE_OK)
    code =
        sqlite3_exec(database, "pragma journal_mode=delete; pragma synchronous=extra; pragma cell_size_check=on; pragma cache_size=-16000",
                     nullptr, nullptr, nullptr);
  if (code == SQLITE_OK)
    code = SqliteCollations::registerAll(database);
  if (code == SQLITE_OK)
    code = SqliteArithmetic::registerAll(database);
  if (code == SQLITE_OK)
    code = sqlite3_set_authorizer(database, authorize, nullptr);
  return code;
}

} // namespace

StatementResult StatementResult::failed(int number, const QString& description)
{
  StatementResult result;
  result.error = std::make_unique<DatabaseError>(DatabaseError{number, description});
  return result;
}

EmbeddedEngine::Opening EmbeddedEngine::open(const QString& path, std::chrono::milliseconds lockWait,
                                             std::chrono::milliseconds longestStatement)
{
  if (const QString refusal = AccountSetFile::refusalOf(path); !refusal.isEmpty())
    return {nullptr, {SQLITE_CANTOPEN, refusal}};
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX, nullptr);
  Database database(opened);
  if (code != SQLITE_OK || AccountSetFile::limit(opened) != SQLITE_OK || setUp(opened, lockWait) != SQLITE_OK)
    return {nullptr, opened ? errorOf(opened) : DatabaseError{code, QStringLiteral("内存不足")}};
  if (const auto refusal = AccountSetFile::refusalOfSchema(opened))
    return {nullptr, *refusal};
  return {std::make_unique<SqliteEngine>(std::move(database), longestStatement), {}};
}
