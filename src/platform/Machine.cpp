#include "platform/Machine.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QProcess>
#include <QSysInfo>

QDateTime ThisMachine::now() const
{
  return QDateTime::currentDateTime();
}

QString ThisMachine::programFolder() const
{
  return QCoreApplication::applicationDirPath();
}

bool ThisMachine::startProgram(const QString& path)
{
  qint64 processId = 0;
  return QProcess::startDetached(path, {}, programFolder(), &processId) && processId != 0;
}

QString ThisMachine::terminalCode() const
{
  // Hashed, because the machine's own number is not meant to leave it.
  const QByteArray identity = QSysInfo::machineUniqueId() + QSysInfo::machineHostName().toUtf8();
  return QString::fromLatin1(QCryptographicHash::hash(identity, QCryptographicHash::Sha256).toHex().left(32)).toUpper();
}
