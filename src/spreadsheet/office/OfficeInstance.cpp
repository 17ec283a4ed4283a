#include "spreadsheet/office/OfficeInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// A setting of the office, by its place in its registry.
struct Setting {
  const char* path;
  const char* name;
  const char* value;
};

constexpr Setting Settings[] = {
    // A new workbook's first sheet must not be called like a template's, or the import renames "sheet1".
    {"/org.openoffice.Office.Calc/Defaults/Sheet", "SheetPrefix", "工作表"},
    // The work copy is nobody else's, and its lock would remain when the office dies.
    {"/org.openoffice.Office.Common/Misc", "UseLocking", "false"},
    // Operators read Chinese, whatever the machine's language.
    {"/org.openoffice.Office.Linguistic/General", "UILocale", "zh-CN"},
    // Dialogs that would come between the operator and the workbook.
    {"/org.openoffice.Office.Common/Misc", "FirstRun", "false"},
    {"/org.openoffice.Office.Common/Misc", "ShowTipOfTheDay", "false"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "Donate", "false"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "GetInvolved", "false"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "WhatsNew", "false"},
    // A workbook gets no network access: links are not fetched, and any request that is made nevertheless goes to a
    // port of this machine on which nobody listens.
    {"/org.openoffice.Office.Common/Security/Scripting", "BlockUntrustedRefererLinks", "true"},
    {"/org.openoffice.Inet/Settings", "ooInetProxyType", "2"},
    {"/org.openoffice.Inet/Settings", "ooInetNoProxy", ""},
    {"/org.openoffice.Inet/Settings", "ooInetHTTPProxyName", "127.0.0.1"},
    {"/org.openoffice.Inet/Settings", "ooInetHTTPProxyPort", "9"},
    {"/org.openoffice.Inet/Settings", "ooInetHTTPSProxyName", "127.0.0.1"},
    {"/org.openoffice.Inet/Settings", "ooInetHTTPSProxyPort", "9"},
    {"/org.openoffice.Inet/Settings", "ooInetFTPProxyName", "127.0.0.1"},
    {"/org.openoffice.Inet/Settings", "ooInetFTPProxyPort", "9"},
};

QByteArray registry()
{
  QByteArray items = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\">\n";
  for (const Setting& setting : Settings)
    items += QByteArray("<item oor:path=\"") + setting.path + "\"><prop oor:name=\"" + setting.name + "\" oor:op=\"fuse\"><value>" +
             setting.value + "</value></prop></item>\n";
  return items + "</oor:items>\n";
}

const QString SettingsFile = u"/registrymodifications.xcu"_s;

QByteArray contentOf(const QString& path)
{
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& content)
{
  QFile file(path);
  if (file.open(QIODevice::WriteOnly))
    file.write(content);
}

// The pipe on which an office learns that another was started with its profile. Its name is a hash in hexadecimal,
// without leading zeros in its bytes.
QString profilePipe(const QString& profile)
{
  const QString url = QString::fromLatin1(QUrl::fromLocalFile(profile).toEncoded());
  const QByteArray bytes(reinterpret_cast<const char*>(url.utf16()), url.size() * qsizetype(sizeof(char16_t)));
  QString name = u"SingleOfficeIPC_"_s;
  for (const char byte : QCryptographicHash::hash(bytes, QCryptographicHash::Md5))
    name += QString::number(uchar(byte), 16);
  return name;
}

} // namespace

OfficeInstance OfficeInstance::numbered(int number)
{
  QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
  if (cache.isEmpty() || !QDir().mkpath(cache) || !QFileInfo(cache).isWritable())
    cache = QDir::tempPath();
  const QString profile = u"%1/ZORVEK/office-%2"_s.arg(cache).arg(number);
  // Pipe names are global to the machine.
  const QByteArray mark = QCryptographicHash::hash(profile.toUtf8(), QCryptographicHash::Md5).toHex().first(12);
  return {profile, u"ZORVEK-"_s + QString::fromLatin1(mark)};
}

void OfficeInstance::prepare() const
{
  QDir(temporaryFolder()).removeRecursively();
  QDir().mkpath(temporaryFolder());
  // The office rewrites its settings when it ends; this file holds the original ones.
  const QString begin = profileFolder + u"/settings"_s;
  if (contentOf(begin) == registry())
    return;
  const QString user = profile() + u"/user"_s;
  QFile::remove(user + SettingsFile);
  QDir().mkpath(user);
  write(user + SettingsFile, registry());
  write(begin, registry());
}

void OfficeInstance::clear() const
{
  for (const QFileInfo& one : QDir(profileFolder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
    if (one.isDir() && !one.isSymLink())
      QDir(one.filePath()).removeRecursively();
    else if (one.filePath() != lockFile())
      QFile::remove(one.filePath());
  for (const QString& one : pipeFiles())
    QFile::remove(one);
}

QStringList OfficeInstance::pipeFiles() const
{
  const QString file = u"/tmp/OSL_PIPE_%1_%2"_s.arg(getuid());
  return {file.arg(pipe), file.arg(profilePipe(profile()))};
}
