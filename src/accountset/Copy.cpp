#include "accountset/Copy.h"

#include "accountset/AccountSet.h"
#include "accountset/Schema.h"
#include "database/SqlTokens.h"

#include <QFile>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

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
  if (value.isNull())
    return u"null"_s;
  return value.is<QString>() ? SqlTokens::quoted(value.toText(), u'\'') : value.toText();
}

QString selectOf(const Store& from, const Table& table)
{
  QStringList columns;
  for (const Column& column : table.columns)
    columns.append(column.type == ColumnType::Binary ? from.hexOf(QLatin1String(column.name)) : QLatin1String(column.name));
  return u"select "_s + columns.join(u',') + u" from "_s + QLatin1String(table.name);
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

tl::expected<void, QString> copyTable(Store& from, Store& to, const Table& table)
{
  const auto read = from.run(selectOf(from, table));
  if (!read)
    return tl::unexpected(read.error());
  for (qint64 at = 0; at < read->rows(); at += RowsAStatement) {
    QStringList some;
    for (qint64 i = at; i < std::min(at + RowsAStatement, qint64(read->rows())); ++i)
      some.append(rowOf(to, table, *read, i));
    if (const auto written = to.run(u"insert into "_s + QLatin1String(table.name) + u" values"_s + some.join(u',')); !written)
      return tl::unexpected(written.error());
  }
  return {};
}

tl::expected<Content, QString> contentOf(Store& store, const Table& table)
{
  QStringList asked = {u"count(*)"_s};
  for (const Column& column : table.columns)
    if (isNumber(column))
      asked.append(store.sumOf(QLatin1String(column.name)));
  const auto read = store.run(u"select "_s + asked.join(u',') + u" from "_s + QLatin1String(table.name));
  if (!read)
    return tl::unexpected(QLatin1String(table.name) + u": "_s + read.error());
  Content content{read->value(0, 0).toInteger(), {}};
  for (int i = 1; i < asked.size(); ++i)
    content.sums.append(read->value(0, i).toText());
  return content;
}

tl::expected<void, QString> fill(Store& from, Store& to)
{
  for (const Table& table : Schema::allTables()) {
    const auto content = contentOf(to, table);
    if (!content)
      return tl::unexpected(content.error());
    if (content->rows != 0)
      return tl::unexpected(u"目标账套不是空的：%1"_s.arg(QLatin1String(table.name)));
    if (const auto copied = copyTable(from, to, table); !copied)
      return tl::unexpected(QLatin1String(table.name) + u": "_s + copied.error());
  }
  return {};
}

} // namespace

tl::expected<void, QString> rows(Store& from, Store& to)
{
  if (const auto begun = to.run(u"begin"_s); !begun)
    return tl::unexpected(begun.error());
  if (auto filled = fill(from, to); !filled) {
    std::ignore = to.run(u"rollback"_s);
    return filled;
  }
  return to.runAll({u"commit"_s});
}

tl::expected<QList<Proof>, QString> prove(Store& from, Store& to)
{
  QList<Proof> proofs;
  for (const Table& table : Schema::allTables()) {
    const auto there = contentOf(from, table);
    if (!there)
      return tl::unexpected(there.error());
    const auto here = contentOf(to, table);
    if (!here)
      return tl::unexpected(here.error());
    Proof proof{QLatin1String(table.name), {}, *there, *here};
    for (const Column& column : table.columns)
      if (isNumber(column))
        proof.columns.append(QLatin1String(column.name));
    proofs.append(proof);
  }
  return proofs;
}

tl::expected<void, QString> toFile(const AccountSetLocation& from, const QString& path)
{
  if (!from.isServer())
    return Store::copyFile(from.file, path);
  const auto moment = Store::openMoment(from);
  if (!moment)
    return tl::unexpected(moment.error());
  if (const auto made = AccountSet::create(path); !made)
    return made;
  auto done = Store::open({path, {}}).and_then([&moment](std::unique_ptr<Store>&& file) { return rows(**moment, *file); });
  if (!done)
    QFile::remove(path);
  return done;
}

} // namespace Copy
