#include "accountset/Check.h"

#include "accountset/CheckQueries.h"
#include "database/EmbeddedEngine.h"
#include "database/ServerEngine.h"
#include "ledger/BillKinds.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace Check {
namespace {

using Done = tl::expected<void, QString>;

// An account set, and what is asked of it.
struct Checked {
  std::unique_ptr<Engine> engine;
  QList<Query> queries;
};

tl::expected<Checked, QString> open(const AccountSetLocation& location)
{
  auto engine = location.isServer() ? ServerEngine::open(location.server) : EmbeddedEngine::open(location.file);
  if (!engine)
    return tl::unexpected(engine.error().description);
  const auto closed = lastClosedDay(**engine);
  if (!closed)
    return tl::unexpected(closed.error().description);
  return Checked{*std::move(engine), billQueries() + voucherQueries(*closed) + settlementQueries()};
}

// The rows that a query returns, one per line.
tl::expected<QStringList, QString> linesOf(const Checked& set, const QString& sql)
{
  const auto rows = set.engine->execute(sql);
  if (!rows)
    return tl::unexpected(rows.error().description);
  QStringList lines;
  for (qint64 row = 0; row < rows->rows(); ++row) {
    QStringList values;
    for (int i = 0; i < rows->names().size(); ++i)
      values.append(rows->value(row, i).toText());
    lines.append(values.join(u" | "_s));
  }
  return lines;
}

Done reportAll(const Checked& set, const Report& report)
{
  for (const Query& query : set.queries) {
    const auto rows = linesOf(set, query.sql);
    if (!rows)
      return tl::unexpected(rows.error());
    if (!rows->isEmpty())
      report({query.rule, *rows, {}, query.advice});
  }
  return {};
}

// The repairs come first: what one of them corrects may also be found by a rule before it.
Done repairAll(const Checked& set, const Report& report)
{
  QHash<QString, QStringList> found;
  for (const Query& query : set.queries) {
    if (query.repairs.isEmpty())
      continue;
    const auto rows = linesOf(set, query.sql);
    if (!rows)
      return tl::unexpected(rows.error());
    found.insert(query.rule, *rows);
    if (rows->isEmpty())
      continue;
    for (const QString& statement : query.repairs)
      if (const auto changed = set.engine->execute(statement); !changed)
        return tl::unexpected(changed.error().description);
  }
  for (const Query& query : set.queries) {
    const auto rows = linesOf(set, query.sql);
    if (!rows)
      return tl::unexpected(rows.error());
    QStringList repaired = found.value(query.rule);
    repaired.removeIf([&rows](const QString& row) { return rows->contains(row); });
    if (!rows->isEmpty() || !repaired.isEmpty())
      report({query.rule, *rows, repaired, query.advice});
  }
  return {};
}

} // namespace

const QStringList GoodsBills = {u"TabInBill"_s,        u"TabInCancleBill"_s, u"TabOutBill"_s,
                                u"TabOutCancleBill"_s, u"TabElseInBill"_s,   u"TabElseOutBill"_s};

Query queryOf(const Rule& rule, NamedValues values)
{
  QStringList repairs;
  for (const QStringView repair : rule.repairs)
    if (!repair.isEmpty())
      repairs.append(filled(repair, values));
  return {filled(rule.words, values), filled(rule.sql, values), rule.advice.toString(), repairs};
}

QString filled(QStringView text, NamedValues values)
{
  QString whole = text.toString();
  for (const auto& [name, value] : values)
    whole.replace(QLatin1String(name), value);
  return whole;
}

QString isBillOf(const QStringList& tables, const QString& code)
{
  QStringList lookups;
  for (const QString& table : tables)
    lookups.append(filled(u"exists (select 1 from @table b where b.Code=@code)", {{"@table", table}, {"@code", code}}));
  return u'(' + lookups.join(u" or ") + u')';
}

QStringList headerTables(bool (*wanted)(const BillKind& kind))
{
  QStringList tables;
  for (const BillKind* const kind : BillKinds::All)
    if (wanted(*kind))
      tables.append(QLatin1String(kind->headerTable));
  return tables;
}

tl::expected<void, QString> run(const AccountSetLocation& location, const Report& report)
{
  return open(location).and_then([&report](Checked&& set) { return reportAll(set, report); });
}

tl::expected<bool, QString> isRepairable(const AccountSetLocation& location)
{
  auto set = open(location);
  if (!set)
    return tl::unexpected(set.error());
  for (const Query& query : set->queries) {
    if (query.repairs.isEmpty())
      continue;
    const auto rows = linesOf(*set, query.sql);
    if (!rows)
      return tl::unexpected(rows.error());
    if (!rows->isEmpty())
      return true;
  }
  return false;
}

tl::expected<void, QString> repair(const AccountSetLocation& location, const Report& report)
{
  auto set = open(location);
  if (!set)
    return tl::unexpected(set.error());
  if (const auto begun = set->engine->begin(); !begun)
    return tl::unexpected(begun.error().description);
  QList<Finding> findings;
  auto done = repairAll(*set, [&findings](const Finding& finding) { findings.append(finding); });
  if (!done) {
    set->engine->rollback();
    return done;
  }
  if (const auto committed = set->engine->commit(); !committed)
    return tl::unexpected(committed.error().description);
  for (const Finding& finding : findings)
    report(finding);
  return {};
}

} // namespace Check
