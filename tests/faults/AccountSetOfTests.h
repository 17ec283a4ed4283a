#pragma once

#include "accountset/AccountSet.h"
#include "accountset/Store.h"
#include "samplefirm/SampleFirm.h"
#include "session/SessionParams.h"
#include "support/TestServer.h"

#include <QDir>
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
    if (const auto made = AccountSet::create(m_location.file, SampleFirm::write); !made)
      qFatal("%s", qPrintable(made.error()));
    m_params.DatabaseType = "Access";
    m_params.IsAccessSQL = true;
    m_params.ConDataName = "A001.mdb";
  }

  QString folder() const { return m_folder.path(); }
  const SessionParams& params() const { return m_params; }
  // A connection of its own, beside the program's.
  std::unique_ptr<Store> openStore() const { return *Store::open(m_location); }

private:
  QTemporaryDir m_folder;
  std::unique_ptr<TestServer::Database> m_database;
  SessionParams m_params;
  AccountSetLocation m_location;
};
