#include "accountset/Check.h"

#include "accountset/CheckQueries.h"
#include "database/EmbeddedEngine.h"
#include "database/ServerEngine.h"
#include "ledger/BillKinds.h"

using namespace Qt::StringLiterals;

namespace Check {
namespace {

QStringList linesOf(const RowSet& rows)
{
  QStringList lines;
  for (qint64 row = 0; row < rows.rows(); ++row) {
    QStringList values;
    for (int i = 0; i < rows.names().size(); ++i)
      values.append(rows.value(row, i).toText());
    lines.append(values.join(u" | "_s));
  }
  return lines;
}

} // namespace

const QStringList GoodsBills = {u"TabInBill"_s,        u"TabInCancleBill"_s, u"TabOutBill"_s,
                                u"TabOutCancleBill"_s, u"TabElseInBill"_s,   u"TabElseOutBill"_s};

Query queryOf(const Rule& rule, NamedValues values)
{
  return {filled(rule.words, values), filled(rule.sql, values)};
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

tl::expected<void, QString> run(const AccountSetLocation& location, const std::function<void(const Finding&)>& report)
{
  const auto engine = location.isServer() ? ServerEngine::open(location.server) : EmbeddedEngine::open(location.file);
  if (!engine)
    return tl::unexpected(engine.error().description);
  const auto closed = lastClosedDay(**engine);
  if (!closed)
    return tl::unexpected(closed.error().description);
  for (const Query& query : billQueries() + voucherQueries(*closed) + settlementQueries()) {
    const auto rows = (*engine)->execute(query.sql);
    if (!rows)
      return tl::unexpected(rows.error().description);
    if (rows->rows() > 0)
      report({query.rule, linesOf(*rows)});
  }
  return {};
}

} // namespace Check
