#include "FilledAccountSet.h"

#include "accountset/AccountSet.h"
#include "database/SqliteArithmetic.h"
#include "database/SqliteCollations.h"

#include <QDir>

#include <sqlite3.h>

FilledAccountSet::FilledAccountSet()
{
  QDir(m_folder.path()).mkpath(QStringLiteral("Data"));
  const QString path = m_folder.filePath(QStringLiteral("Data/A001.mdb"));
  if (const auto made = AccountSet::create(path); !made)
    qFatal("%s", qPrintable(made.error()));
  if (sqlite3_open(path.toUtf8().constData(), &m_database) != SQLITE_OK || SqliteCollations::registerAll(m_database) != SQLITE_OK ||
      SqliteArithmetic::registerAll(m_database) != SQLITE_OK)
    qFatal("cannot open %s", qPrintable(path));
  run("pragma synchronous=off");
  m_session.params.DatabaseType = QStringLiteral("Access");
  m_session.params.IsAccessSQL = true;
  m_session.params.ConDataName = QStringLiteral("A001.mdb");
  m_session.params.UserName = QStringLiteral("系统管理员");
}

FilledAccountSet::~FilledAccountSet()
{
  sqlite3_close(m_database);
}

void FilledAccountSet::run(const QString& sql)
{
  if (sqlite3_exec(m_database, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
    qFatal("%s: %s", sqlite3_errmsg(m_database), qPrintable(sql));
}

void FilledAccountSet::fill(int count, const QString& table, const QString& columns, const QString& values)
{
  run(QStringLiteral("with recursive n(i) as (select 0 union all select i+1 from n where i+1<%1) insert into %2(%3) select %4 from n")
          .arg(QString::number(count), table, columns, values));
}
