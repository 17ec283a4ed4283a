#include "support/RawDatabase.h"

#include "database/SqliteArithmetic.h"
#include "database/SqliteCollations.h"

#include <QStringList>

#include <sqlite3.h>

namespace {

int appendRow(void* rows, int columns, char** values, char**)
{
  QStringList row;
  for (int i = 0; i < columns; ++i)
    row.append(values[i] ? QString::fromUtf8(values[i]) : QStringLiteral("NULL"));
  static_cast<QStringList*>(rows)->append(row.join(u'|'));
  return 0;
}

} // namespace

RawDatabase::RawDatabase(const QString& path)
{
  sqlite3* opened = nullptr;
  const int code = sqlite3_open(path.toUtf8().constData(), &opened);
  m_database.reset(opened);
  if (code != SQLITE_OK || SqliteCollations::registerAll(opened) != SQLITE_OK || SqliteArithmetic::registerAll(opened) != SQLITE_OK)
    qFatal("cannot open %s", qPrintable(path));
}

QString RawDatabase::rows(const QString& sql)
{
  QStringList found;
  char* error = nullptr;
  if (sqlite3_exec(m_database.get(), sql.toUtf8().constData(), appendRow, &found, &error) != SQLITE_OK)
    qFatal("%s: %s", error, qPrintable(sql));
  return found.join(u'\n');
}
