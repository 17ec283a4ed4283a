#include "accountset/SchemaSql.h"

#include "database/PostgreSqlTypes.h"
#include "database/SqliteCollations.h"

using namespace Qt::StringLiterals;

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
  case Presence::Required: return u" not null"_s;
  case Presence::ZeroIfLeftOut: return u" default 0"_s;
  }
  return {};
}

// The key is a unique constraint: as a primary key, an integer column in a file would become the rowid, and on a
// server a line number could not be null.
QString tableSql(const Table& table, const Words& words)
{
  QStringList parts;
  for (const Column& column : table.columns)
    parts.append(QLatin1String(column.name) + u' ' + words.typeOf(column.type) + presenceOf(column.presence));
  if (*table.key)
    parts.append(u"unique (%1)"_s.arg(QLatin1String(table.key)));
  return u"create table %1 (%2)"_s.arg(QLatin1String(table.name), parts.join(u", "_s));
}

QString indexSql(const Table& table, const QString& columns, QLatin1String nullsAhead)
{
  const QStringList names = columns.split(u", "_s);
  return u"create index %1_%2 on %1 (%3%4)"_s.arg(QLatin1String(table.name), names.join(u'_'), names.join(nullsAhead + u", "_s),
                                                  nullsAhead);
}

QString embeddedType(ColumnType type)
{
  switch (type) {
  case ColumnType::Text: return u"text collate %1"_s.arg(QLatin1String(SqliteCollations::Text));
  case ColumnType::Date: return u"text collate %1"_s.arg(QLatin1String(SqliteCollations::Date));
  case ColumnType::Money:
  case ColumnType::Single: return u"numeric"_s;
  case ColumnType::Integer: return u"integer"_s;
  case ColumnType::Binary: return u"blob"_s;
  }
  return {};
}

// A rate is stored as it was entered, as in the file: a true single would not equal what was typed.
QString serverType(ColumnType type)
{
  switch (type) {
  case ColumnType::Text: return QLatin1String(PostgreSqlTypes::Text);
  case ColumnType::Date: return QLatin1String(PostgreSqlTypes::Date);
  case ColumnType::Money:
  case ColumnType::Single: return u"numeric"_s;
  case ColumnType::Integer: return u"bigint"_s;
  case ColumnType::Binary: return u"bytea"_s;
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
