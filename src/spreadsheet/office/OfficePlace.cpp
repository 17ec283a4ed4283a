#include "spreadsheet/office/OfficePlace.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

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
    // The work copy is nobody else's, and its lock would stay behind when the office dies.
    {"/org.openoffice.Office.Common/Misc", "UseLocking", "false"},
    // Operators read Chinese, whatever the machine's language.
    {"/org.openoffice.Office.Linguistic/General", "UILocale", "zh-CN"},
    // What would come between the operator and the workbook.
    {"/org.openoffice.Office.Common/Misc", "FirstRun", "false"},
    {"/org.openoffice.Office.Common/Misc", "ShowTipOfTheDay", "false"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "Donate", "false"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "GetInvolved", "false"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "WhatsNew", "false"},
};

QByteArray registry()
{
  QByteArray items = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\">\n";
  for (const Setting& setting : Settings)
    items += QByteArray("<item oor:path=\"") + setting.path + "\"><prop oor:name=\"" + setting.name + "\" oor:op=\"fuse\"><value>" +
             setting.value + "</value></prop></item>\n";
  return items + "</oor:items>\n";
}

} // namespace

OfficePlace OfficePlace::numbered(int number)
{
  QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
  if (cache.isEmpty() || !QDir().mkpath(cache) || !QFileInfo(cache).isWritable())
    cache = QDir::tempPath();
  const QString profile = QStringLiteral("%1/ZORVEK/office-%2").arg(cache).arg(number);
  // Pipes are named for the whole machine.
  const QByteArray mark = QCryptographicHash::hash(profile.toUtf8(), QCryptographicHash::Md5).toHex().first(12);
  return {profile, "ZORVEK-" + QString::fromLatin1(mark)};
}

void OfficePlace::prepare() const
{
  QDir(temporaryFolder()).removeRecursively();
  QDir().mkpath(temporaryFolder());
  const QString user = profileFolder + "/profile/user";
  QFile settings(user + "/registrymodifications.xcu");
  if (!settings.exists() && QDir().mkpath(user) && settings.open(QIODevice::WriteOnly))
    settings.write(registry());
}
