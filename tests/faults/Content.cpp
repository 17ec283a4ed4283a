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

tl::expected<QByteArray, QString> digest(const QString& path)
{
  const auto store = Store::open({path, {}});
  if (!store)
    return tl::unexpected(store.error());
  const auto whole = (*store)->run(QStringLiteral("pragma integrity_check"));
  if (!whole)
    return tl::unexpected(whole.error());
  if (const QString found = whole->value(0, 0).toText(); found != u"ok")
    return tl::unexpected(found);
  QCryptographicHash hash(QCryptographicHash::Md5);
  for (const Schema::Table& table : Schema::allTables()) {
    // A script may have taken a table away.
    const auto rows = (*store)->run("select * from " + QLatin1String(table.name) + " order by rowid");
    hash.addData(table.name);
    if (rows)
      add(hash, *rows);
  }
  return hash.result();
}

} // namespace Content
