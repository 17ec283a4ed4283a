#pragma once

#include "accountset/AccountSet.h"
#include "accountset/Store.h"
#include "session/SessionParams.h"
#include "support/TestServer.h"

#include <QTemporaryDir>

#include <memory>

// The sample firm in a fresh program folder, as a file or on the server of the tests, and the parameters of a session
// over it.
class AccountSetOfTests {
public:
  AccountSetOfTests(bool isOnServer, const QString& databaseName);

  QString folder() const { return m_folder.path(); }
  const SessionParams& params() const { return m_params; }
  // A connection of its own, beside the program's.
  std::unique_ptr<Store> openStore() const;

private:
  QTemporaryDir m_folder;
  std::unique_ptr<TestServer::Database> m_database;
  SessionParams m_params;
  AccountSetLocation m_location;
};
