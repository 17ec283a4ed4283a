#include "accountset/SchemaSql.h"

#include "database/PostgreSqlTypes.h"
#include "database/SqliteCollations.h"

namespace SchemaSql {
namespace {

using Schema::Column;
using Schema::ColumnType;
using Schema::Presence;
using Schema::Table;

QString presenceOf(Presence presence)
{
  switch (presence) {
  case Presence::Optional: return {};
  case Presence::Required: return QStringLiteral(" not null");
  case Presence::ZeroIfLeftOut: return QStringLiteral(" default 0");
  }
  return {};
}

// The key is a unique constraint: as a primary key, a column of whole numbers in the file would number its
// rows by itself, and on a server a row could not leave out its line number.
QString tableSql(const Table& table, const Words& words)
{
  QStringList parts;
  for (const Column& column : table.columns)
    parts.append(QLatin1String(column.name) + u' ' + words.typeOf(column.type) + presenceOf(column.presence));
  if (*table.key)
    parts.append(QStringLiteral("unique (%1)").arg(QLatin1String(table.key)));
  return QStringLiteral("create table %1 (%2)").arg(QLatin1String(table.name), parts.join(QStringLiteral(", ")));
}

QString indexSql(const Table& table, const QString& columns, QLatin1String nullsAhead)
{
  const QStringList names = columns.split(QStringLiteral(", "));
  return QStringLiteral("create index %1_%2 on %1 (%3%4)")
      .arg(QLatin1String(table.name), names.join(u'_'), names.join(nullsAhead + QStringLiteral(", ")), nullsAhead);
}

QString embeddedType(ColumnType type)
{
  switch (type) {
  case ColumnType::Text: return QStringLiteral("text collate %1").arg(QLatin1String(SqliteCollations::Text));
  case ColumnType::Date: return QStringLiteral("text collate %1").arg(QLatin1String(SqliteCollations::Date));
  case ColumnType::Money:
  case ColumnType::Single: return QStringLiteral("numeric");
  case ColumnType::Integer: return QStringLiteral("integer");
  case ColumnType::Binary: return QStringLiteral("blob");
  }
  return {};
}

// A rate is kept as it was entered, as in the file: a true single would not equal what was typed.
QString serverType(ColumnType type)
{
  switch (type) {
  case ColumnType::Text: return QLatin1String(PostgreSqlTypes::Text);
  case ColumnType::Date: return QLatin1String(PostgreSqlTypes::Date);
  case ColumnType::Money:
  case ColumnType::Single: return QStringLiteral("numeric");
  case ColumnType::Integer: return QStringLiteral("bigint");
  case ColumnType::Binary: return QStringLiteral("bytea");
  }
  return {};
}

} // namespace

const Words Embedded{embeddedType, ""};
const Words Server{serverType, " nulls first"};

QStringList statements(std::span<const Table> tables, const Words& words)
{
  QStringList all;
  for (const Table& table : tables) {
    all.append(tableSql(table, words));
    for (const char* columns : table.indexes)
      if (columns)
        all.append(indexSql(table, QLatin1String(columns), QLatin1String(words.nullsAhead)));
  }
  return all;
}

} // namespace SchemaSql
