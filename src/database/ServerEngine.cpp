#include "database/ServerEngine.h"

#include "database/DialectTranslator.h"
#include "database/Odbc.h"
#include "platform/AnsiText.h"

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;
using DialectTranslator::Target;

// The error number of a statement that is refused.
constexpr int Refused = -2147217900;

// After this much idle time the connection is pinged before a write: servers and networks drop idle connections, and
// a write that was lost cannot be distinguished from one that was done.
constexpr std::chrono::milliseconds TrustedPause{500};

// Held until the end of the transaction. The number is any that no other program of the account set uses.
constexpr char PostgreSqlLock[] = "select pg_advisory_xact_lock(907156018)";
constexpr char SqlServerLock[] = "declare @held int; exec @held = sp_getapplock 'ZORVEK', 'Exclusive', 'Transaction', 10000; "
                                 "if @held < 0 raiserror('lock timeout', 16, 1)";

class OdbcEngine : public Engine {
public:
  explicit OdbcEngine(std::unique_ptr<Odbc> connection)
      : m_connection(std::move(connection)),
        m_target(m_connection->kind() == Odbc::Kind::PostgreSql ? Target::PostgreSql : Target::SqlServer)
  {
  }

  bool isOpen() const override { return !m_connection->isLost(); }

  // Our programs write one after the other, as they do on a file: a number that was drawn or a bill that was read again
  // stays as it was until the commit. Other programs and readers are not held up. The lock is the first statement, so
  // nothing is lost with a connection that was dropped.
  DatabaseResult<void> begin() override
  {
    m_connection->begin();
    const auto locked = m_connection->run(m_target == Target::PostgreSql ? PostgreSqlLock : SqlServerLock);
    m_lastUse = Clock::now();
    if (locked)
      return {};
    rollback();
    return repeatable(locked.error());
  }
  DatabaseResult<void> commit() override { return m_connection->commit(); }
  void rollback() override { m_connection->rollback(); }
  bool isInTransaction() const override { return m_connection->isInTransaction(); }

  DatabaseResult<RowSet> execute(const QString& sql) override
  {
    const auto translation = DialectTranslator::translate(sql, m_target);
    if (!translation)
      return databaseError(Refused, translation.error());
    // PostgreSQL refuses by itself what its encoding has no character for; SQL Server writes a "?" instead.
    if (m_target == Target::SqlServer && !AnsiText::holds(translation->sql))
      return databaseError(Refused, u"语句含有服务器代码页以外的文字"_s);
    if (!translation->isQuery && !isInTransaction() && Clock::now() - m_lastUse > TrustedPause)
      if (const auto trial = m_connection->tryOut(); !trial)
        return repeatable(trial.error());
    auto rows = m_connection->run(translation->sql.toUtf8());
    m_lastUse = Clock::now();
    if (!rows && translation->isQuery && !m_connection->isGivenUp())
      return repeatable(rows.error());
    if (rows && !translation->isQuery)
      return RowSet();
    return rows;
  }

private:
  tl::unexpected<DatabaseError> repeatable(DatabaseError error) const
  {
    error.isRepeatable = !isOpen();
    return tl::unexpected(error);
  }

  std::unique_ptr<Odbc> m_connection;
  Target m_target;
  Clock::time_point m_lastUse = Clock::now();
};

} // namespace

DatabaseResult<std::unique_ptr<Engine>> ServerEngine::open(const ServerAddress& server, const ServerWaits& waits)
{
  auto connection = Odbc::open(server, waits);
  if (!connection)
    return tl::unexpected(connection.error());
  return std::make_unique<OdbcEngine>(*std::move(connection));
}
