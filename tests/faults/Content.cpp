#include "Content.h"

#include "accountset/Schema.h"
#include "accountset/Store.h"

#include <QCryptographicHash>

namespace Content {
namespace {

void add(QCryptographicHash& hash, const RowSet& rows)
{
  for (qint64 row = 0; row < rows.rows(); ++row)
    for (int column = 0; column < rows.names().size(); ++column) {
      const Value value = rows.value(row, column);
      hash.addData(value.isNull() ? "N" : "V");
      hash.addData(value.toText().toUtf8() + '\0');
    }
}

} // namespace

QByteArray digest(const QString& path, QString& reason)
{
  const Store::Opening opening = Store::open({path, {}});
  reason = opening.reason;
  if (!opening.store)
    return {};
  const StatementResult whole = opening.store->run(QStringLiteral("pragma integrity_check"));
  if (whole.error || whole.rows.value(0, 0).toText() != u"ok") {
    reason = whole.error ? whole.error->description : whole.rows.value(0, 0).toText();
    return {};
  }
  QCryptographicHash hash(QCryptographicHash::Md5);
  for (const Schema::Table& table : Schema::allTables()) {
    // A script may have taken a table away.
    const StatementResult rows = opening.store->run("select * from " + QLatin1String(table.name) + " order by rowid");
    hash.addData(table.name);
    if (!rows.error)
      add(hash, rows.rows);
  }
  return hash.result();
}

} // namespace Content
