#include "accountset/Copy.h"

#include <algorithm>
#include <charconv>

namespace Copy {
namespace {

using Schema::Column;
using Schema::ColumnType;
using Schema::Table;

constexpr qint64 RowsAStatement = 200;

bool isNumber(const Column& column)
{
  return column.type == ColumnType::Money || column.type == ColumnType::Single || column.type == ColumnType::Integer;
}

QString literal(const Value& value)
{
  switch (value.kind()) {
  case Value::Kind::Null: return QStringLiteral("null");
  case Value::Kind::Text: return u'\'' + value.toText().replace(u'\'', QStringLiteral("''")) + u'\'';
  default: return value.toText();
  }
}

QString selectOf(const Store& from, const Table& table)
{
  QStringList columns;
  for (const Column& column : table.columns)
    columns.append(column.type == ColumnType::Binary ? from.hexOf(QLatin1String(column.name)) : QLatin1String(column.name));
  return "select " + columns.join(u',') + " from " + table.name;
}

QString rowOf(const Store& to, const Table& table, const RowSet& rows, qint64 at)
{
  QStringList values;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const Value value = rows.value(at, int(i));
    const bool isBinary = table.columns[i].type == ColumnType::Binary && !value.isNull();
    values.append(isBinary ? to.binaryLiteral(value.toText()) : literal(value));
  }
  return u'(' + values.join(u',') + u')';
}

QString copyTable(Store& from, Store& to, const Table& table)
{
  const StatementResult read = from.run(selectOf(from, table));
  if (read.error)
    return read.error->description;
  for (qint64 at = 0; at < read.rows.rows(); at += RowsAStatement) {
    QStringList some;
    for (qint64 i = at; i < std::min(at + RowsAStatement, qint64(read.rows.rows())); ++i)
      some.append(rowOf(to, table, read.rows, i));
    if (const StatementResult written = to.run("insert into " + QLatin1String(table.name) + " values" + some.join(u',')); written.error)
      return written.error->description;
  }
  return {};
}

bool contentOf(Store& store, const Table& table, Content& content, QString& reason)
{
  QStringList asked = {QStringLiteral("count(*)")};
  for (const Column& column : table.columns)
    if (isNumber(column))
      asked.append(store.sumOf(QLatin1String(column.name)));
  const StatementResult read = store.run("select " + asked.join(u',') + " from " + table.name);
  if (read.error)
    reason = QLatin1String(table.name) + QStringLiteral(": ") + read.error->description;
  if (read.error || read.rows.rows() != 1)
    return false;
  content.rows = read.rows.value(0, 0).toInteger();
  for (int i = 1; i < asked.size(); ++i)
    content.sums.append(read.rows.value(0, i).toText());
  return true;
}

QString fill(Store& from, Store& to)
{
  for (const Table& table : Schema::allTables()) {
    Content content;
    QString reason;
    if (!contentOf(to, table, content, reason))
      return reason;
    if (content.rows != 0)
      return QStringLiteral("目标账套不是空的：%1").arg(QLatin1String(table.name));
    if (reason = copyTable(from, to, table); !reason.isEmpty())
      return QLatin1String(table.name) + QStringLiteral(": ") + reason;
  }
  return {};
}

} // namespace

QString rows(Store& from, Store& to)
{
  if (const QString reason = to.runAll({QStringLiteral("begin")}); !reason.isEmpty())
    return reason;
  if (const QString reason = fill(from, to); !reason.isEmpty()) {
    to.run(QStringLiteral("rollback"));
    return reason;
  }
  return to.runAll({QStringLiteral("commit")});
}

QList<Proof> prove(Store& from, Store& to, QString& reason)
{
  QList<Proof> proofs;
  for (const Table& table : Schema::allTables()) {
    Proof proof{QLatin1String(table.name), {}, {}, {}};
    for (const Column& column : table.columns)
      if (isNumber(column))
        proof.columns.append(QLatin1String(column.name));
    if (!contentOf(from, table, proof.from, reason) || !contentOf(to, table, proof.to, reason))
      return {};
    proofs.append(proof);
  }
  return proofs;
}

} // namespace Copy
