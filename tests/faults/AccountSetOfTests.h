#pragma once

#include "accountset/AccountSet.h"
#include "accountset/Schema.h"
#include "accountset/Store.h"
#include "samplefirm/SampleFirm.h"
#include "session/SessionParams.h"
#include "support/TestServer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// The sample firm in a fresh program folder, as a file or on the server of the tests, and the parameters of a session
// on it.
class AccountSetOfTests {
public:
  explicit AccountSetOfTests(bool isOnServer, const QString& databaseName = {})
  {
    m_params.UserName = "系统管理员";
    m_params.OperateDate = QDate(2022, 6, 8);
    if (isOnServer) {
      if (!TestServer::administrator())
        qFatal("tools/with-server runs this");
      m_database = std::make_unique<TestServer::Database>(databaseName, SampleFirm::write);
      m_location = m_database->administrator;
      m_database->use(m_params);
      return;
    }
    QDir(folder()).mkpath("Data");
    m_location.file = m_folder.filePath("Data/A001.mdb");
    if (!QFile::copy(original(), m_location.file))
      qFatal("the sample firm cannot be copied");
    m_params.DatabaseType = "Access";
    m_params.IsAccessSQL = true;
    m_params.ConDataName = "A001.mdb";
  }

  // The sample firm as it was made. To be called before the first change, and while nobody is connected.
  void restore()
  {
    if (!m_database) {
      QFile::remove(m_location.file);
      QFile::copy(original(), m_location.file);
      return;
    }
    QStringList statements;
    if (!m_hasOriginal)
      statements.append("create schema original");
    for (const Schema::Table& table : Schema::allTables()) {
      const QString name = QString::fromLatin1(table.name);
      if (m_hasOriginal)
        statements.append(QString("delete from %1; insert into %1 select * from original.%1").arg(name));
      else
        statements.append(QString("create table original.%1 as table %1").arg(name));
    }
    m_hasOriginal = true;
    if (const auto done = openStore()->run(statements.join(u';')); !done)
      qFatal("%s", qPrintable(done.error()));
  }

  QString folder() const { return m_folder.path(); }
  const SessionParams& params() const { return m_params; }
  const AccountSetLocation& location() const { return m_location; }
  // A connection of its own, beside the program's.
  std::unique_ptr<Store> openStore() const { return *Store::open(m_location); }

private:
  // The file that is copied; made once.
  static QString original()
  {
    static const QTemporaryDir Folder;
    const QString path = Folder.filePath("sample.mdb");
    static const auto Made = AccountSet::create(path, SampleFirm::write);
    return Made ? path : QString();
  }

  QTemporaryDir m_folder;
  std::unique_ptr<TestServer::Database> m_database;
  bool m_hasOriginal = false;
  SessionParams m_params;
  AccountSetLocation m_location;
};
