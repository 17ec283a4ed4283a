#include "accountset/Check.h"

#include "accountset/CheckQueries.h"
#include "database/EmbeddedEngine.h"
#include "database/ServerEngine.h"

namespace Check {
namespace {

QStringList linesOf(const RowSet& rows)
{
  QStringList lines;
  for (qint64 row = 0; row < rows.rows(); ++row) {
    QStringList values;
    for (int i = 0; i < rows.names().size(); ++i)
      values.append(rows.value(row, i).toText());
    lines.append(values.join(QStringLiteral(" | ")));
  }
  return lines;
}

template <typename Opening> std::unique_ptr<Engine> take(Opening opening, QString& reason)
{
  if (!opening.engine)
    reason = opening.error.description;
  return std::move(opening.engine);
}

} // namespace

QString filled(const char* text, std::initializer_list<std::pair<const char*, QString>> values)
{
  QString whole = QString::fromUtf8(text);
  for (const auto& [name, value] : values)
    whole.replace(QLatin1String(name), value);
  return whole;
}

QList<Finding> run(const AccountSetLocation& location, QString& reason)
{
  const auto engine =
      location.isServer() ? take(ServerEngine::open(location.server), reason) : take(EmbeddedEngine::open(location.file), reason);
  if (!engine)
    return {};
  const QString closed = lastClosedDay(*engine, reason);
  if (!reason.isEmpty())
    return {};
  QList<Finding> findings;
  for (const Query& query : billQueries() + voucherQueries(closed) + settlementQueries()) {
    const StatementResult result = engine->execute(query.sql);
    if (result.error) {
      reason = result.error->description;
      return findings;
    }
    if (result.rows.rows() > 0)
      findings.append({query.rule, linesOf(result.rows)});
  }
  return findings;
}

} // namespace Check
