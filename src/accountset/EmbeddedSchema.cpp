#include "accountset/EmbeddedSchema.h"

#include "database/SqliteCollations.h"

#include <QStringList>

namespace EmbeddedSchema {
namespace {

using Schema::Column;
using Schema::ColumnType;
using Schema::Presence;
using Schema::Table;

QString typeOf(ColumnType type)
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

QString presenceOf(Presence presence)
{
  switch (presence) {
  case Presence::Optional: return {};
  case Presence::Required: return QStringLiteral(" not null");
  case Presence::ZeroIfLeftOut: return QStringLiteral(" default 0");
  }
  return {};
}

// The key is a unique constraint: as a primary key, a column of whole numbers would number its rows
// by itself.
QString tableSql(const Table& table)
{
  QStringList parts;
  for (const Column& column : table.columns)
    parts.append(QLatin1String(column.name) + u' ' + typeOf(column.type) + presenceOf(column.presence));
  if (*table.key)
    parts.append(QStringLiteral("unique (%1)").arg(QLatin1String(table.key)));
  return QStringLiteral("create table %1 (%2);\n").arg(QLatin1String(table.name), parts.join(QStringLiteral(", ")));
}

QString indexSql(const Table& table, QLatin1String columns)
{
  const QString name = QLatin1String(table.name) + u'_' + QString(columns).replace(QStringLiteral(", "), QStringLiteral("_"));
  return QStringLiteral("create index %1 on %2 (%3);\n").arg(name, QLatin1String(table.name), columns);
}

} // namespace

QString sql(std::span<const Table> tables)
{
  QString text;
  for (const Table& table : tables) {
    text += tableSql(table);
    for (const char* columns : table.indexes)
      if (columns)
        text += indexSql(table, QLatin1String(columns));
  }
  return text;
}

} // namespace EmbeddedSchema
