#include "OfficeFixture.h"

#include "spreadsheet/office/OfficePlace.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

OfficeFixture::OfficeFixture()
{
  QFile::remove(printerSettings());
}

OfficeClient& OfficeFixture::client()
{
  if (session.spreadsheet.create(); !m_client)
    m_client = std::make_unique<OfficeClient>();
  return *m_client;
}

QString OfficeFixture::printerSettings() const
{
  return OfficePlace::numbered(1).profileFolder + "/profile/user/psprint/psprint.conf";
}

void OfficeFixture::installPrinter()
{
  QFile settings(printerSettings());
  QDir().mkpath(QFileInfo(settings).path());
  if (!settings.open(QIODevice::WriteOnly))
    qFatal("no printer can be installed");
  settings.write("[__Global_Printer_Defaults__]\nDisableCUPS=true\n\n"
                 "[Paper]\nPrinter=SGENPRT/Paper\nDefaultPrinter=1\nCommand=cat > " +
                 QFile::encodeName(paper()) + "\n");
}

int OfficeFixture::printedPages() const
{
  QFile printed(paper());
  const QString content = printed.open(QIODevice::ReadOnly) ? QString::fromLatin1(printed.readAll()) : QString();
  return int(content.count(QRegularExpression("/Type ?/Page[^s]")));
}

QString OfficeFixture::filesIn(const QString& name) const
{
  return QDir(folder.filePath(name)).entryList(QDir::Files | QDir::Hidden).join(u'|');
}
