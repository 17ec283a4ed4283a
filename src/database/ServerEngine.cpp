#include "database/ServerEngine.h"

#include "database/DialectTranslator.h"
#include "database/Odbc.h"
#include "platform/AnsiText.h"

namespace {

using Clock = std::chrono::steady_clock;
using DialectTranslator::Target;

// The number of a statement that is not let through.
constexpr int Refused = -2147217900;

// Behind a pause of this length a connection is tried before something is written: servers and the
// network end what is idle, and a write that was on its way cannot be told from one that was done.
constexpr std::chrono::milliseconds TrustedPause{500};

class OdbcEngine : public Engine {
public:
  explicit OdbcEngine(std::unique_ptr<Odbc> connection)
      : m_connection(std::move(connection)),
        m_target(m_connection->kind() == Odbc::Kind::PostgreSql ? Target::PostgreSql : Target::SqlServer)
  {
  }

  bool isOpen() const override { return !m_connection->isLost(); }

  StatementResult execute(const QString& sql) override
  {
    const auto translation = DialectTranslator::translate(sql, m_target);
    if (!translation.refusal.isEmpty())
      return StatementResult::failed(Refused, translation.refusal);
    if (!fitsCodePage(translation.sql))
      return StatementResult::failed(Refused, QStringLiteral("语句含有服务器代码页以外的文字"));
    if (!translation.isQuery && Clock::now() - m_lastUse > TrustedPause)
      if (StatementResult trial = m_connection->tryOut(); trial.error)
        return repeatable(std::move(trial));
    StatementResult result = m_connection->run(translation.sql.toUtf8());
    m_lastUse = Clock::now();
    result.isQuery = result.isQuery && translation.isQuery;
    const bool mayBeRepeated = translation.isQuery && !m_connection->isGivenUp();
    return result.error && mayBeRepeated ? repeatable(std::move(result)) : std::move(result);
  }

private:
  StatementResult repeatable(StatementResult result) const
  {
    result.isRepeatable = !isOpen();
    return result;
  }

  // PostgreSQL refuses by itself what its encoding has no character for; SQL Server writes a "?" instead.
  bool fitsCodePage(const QString& sql) const
  {
    bool lossless = true;
    if (m_target == Target::SqlServer)
      AnsiText::encode(sql, &lossless);
    return lossless;
  }

  std::unique_ptr<Odbc> m_connection;
  Target m_target;
  Clock::time_point m_lastUse = Clock::now();
};

} // namespace

ServerEngine::Opening ServerEngine::open(const ServerAddress& server, const ServerWaits& waits)
{
  Odbc::Opening opening = Odbc::open(server, waits);
  if (!opening.connection)
    return {nullptr, opening.error};
  return {std::make_unique<OdbcEngine>(std::move(opening.connection)), {}};
}
