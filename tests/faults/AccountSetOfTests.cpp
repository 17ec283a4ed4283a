#include "AccountSetOfTests.h"
#include "samplefirm/SampleFirm.h"

#include <QDir>

AccountSetOfTests::AccountSetOfTests(bool isOnServer, const QString& databaseName)
{
  m_params.UserName = QStringLiteral("系统管理员");
  m_params.OperateDate = QDate(2022, 6, 8);
  if (!isOnServer) {
    QDir(folder()).mkpath(QStringLiteral("Data"));
    m_location.file = m_folder.filePath(QStringLiteral("Data/A001.mdb"));
    if (const auto made = AccountSet::create(m_location.file, SampleFirm::write); !made)
      qFatal("%s", qPrintable(made.error()));
    m_params.DatabaseType = QStringLiteral("Access");
    m_params.IsAccessSQL = true;
    m_params.ConDataName = QStringLiteral("A001.mdb");
    return;
  }
  if (!TestServer::administrator())
    qFatal("tools/with-server runs this");
  m_database = std::make_unique<TestServer::Database>(databaseName, SampleFirm::write);
  m_location = m_database->administrator;
  const ServerAddress& server = m_database->clerk.server;
  m_params.DatabaseType = QStringLiteral("SQL");
  m_params.ConDataName = server.database;
  m_params.ConServerIP = server.host;
  m_params.ConPortNum = server.port;
  m_params.ConDataBaseUID = server.user;
  m_params.ConDataBasePWD = u'{' + QString(server.password).replace(u'}', QStringLiteral("}}")) + u'}';
}

std::unique_ptr<Store> AccountSetOfTests::openStore() const
{
  return *Store::open(m_location);
}
