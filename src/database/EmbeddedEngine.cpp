#include "database/EmbeddedEngine.h"

#include "database/AccountSetFile.h"
#include "database/DialectTranslator.h"
#include "database/Sqlite.h"
#include "database/SqliteArithmetic.h"
#include "database/SqliteCollations.h"

#include <sqlite3.h>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

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

// After a failure of the disk or of the memory nothing more can be relied on. SQLite itself ends the transaction only after
// some of them.
bool endsTransaction(int code)
{
  const int primary = code & 0xff;
  return primary == SQLITE_FULL || primary == SQLITE_IOERR || primary == SQLITE_NOMEM || primary == SQLITE_CORRUPT;
}

class SqliteEngine : public Engine {
public:
  SqliteEngine(Sqlite::Database database, std::chrono::milliseconds longestStatement)
      : m_database(std::move(database)), m_longestStatement(longestStatement)
  {
  }

  bool isOpen() const override { return m_database != nullptr; }

  // The lock is taken at once: a transaction that read first could find the account set changed at its first write.
  DatabaseResult<void> begin() override { return run("begin immediate"); }

  DatabaseResult<void> commit() override
  {
    auto done = run("commit");
    if (!done)
      rollback();
    return done;
  }

  void rollback() override
  {
    if (isInTransaction())
      std::ignore = run("rollback");
  }

  bool isInTransaction() const override { return sqlite3_get_autocommit(m_database.get()) == 0; }

  DatabaseResult<RowSet> execute(const QString& sql) override
  {
    const auto translation = DialectTranslator::forEmbedded(sql);
    if (!translation)
      return databaseError(SQLITE_AUTH, translation.error());
    auto statement = Sqlite::prepare(m_database.get(), translation->sql.toUtf8());
    if (!statement)
      return tl::unexpected(statement.error());
    RowSet rows = Sqlite::columnsOf(statement->get());
    const AccountSetFile::Share share(m_database.get(), m_longestStatement);
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement->get())) == SQLITE_ROW && share.hasRoomFor(rows))
      Sqlite::appendRow(rows, statement->get());
    if (step != SQLITE_DONE) {
      const DatabaseError error = share.excess(rows).value_or(Sqlite::errorOf(m_database.get()));
      statement->reset();
      if (endsTransaction(step))
        rollback();
      return tl::unexpected(error);
    }
    return translation->isQuery ? std::move(rows) : RowSet();
  }

private:
  DatabaseResult<void> run(const char* sql)
  {
    if (sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
      return tl::unexpected(Sqlite::errorOf(m_database.get()));
    return {};
  }

  Sqlite::Database m_database;
  std::chrono::milliseconds m_longestStatement;
};

int setUp(sqlite3* database, std::chrono::milliseconds lockWait)
{
  int code = sqlite3_busy_timeout(database, int(lockWait.count()));
  if (code == SQLITE_OK)
    code = sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  if (code == SQLITE_OK)
    code = sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // "extra" also syncs the folder after a journal is deleted: a journal that reappears after a power cut would undo
  // the last acknowledged statement. The cache holds an account set of usual size, so that lists that look up each of
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

DatabaseResult<std::unique_ptr<Engine>> EmbeddedEngine::open(const QString& path, std::chrono::milliseconds lockWait,
                                                             std::chrono::milliseconds longestStatement)
{
  if (const auto checked = AccountSetFile::check(path); !checked)
    return tl::unexpected(checked.error());
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX, nullptr);
  Sqlite::Database database(opened);
  if (!opened)
    return databaseError(code, u"内存不足"_s);
  if (code != SQLITE_OK || AccountSetFile::limit(opened) != SQLITE_OK || setUp(opened, lockWait) != SQLITE_OK)
    return tl::unexpected(Sqlite::errorOf(opened));
  if (const auto checked = AccountSetFile::checkSchema(opened); !checked)
    return tl::unexpected(checked.error());
  return std::make_unique<SqliteEngine>(std::move(database), longestStatement);
}
