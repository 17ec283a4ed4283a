#include "OfficeFixture.h"

#include "spreadsheet/office/OfficeInstance.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

OfficeFixture::OfficeFixture()
{
  writePrinters({});
}

OfficeClient& OfficeFixture::client()
{
  if (session.spreadsheet.create(); !m_client)
    m_client = std::make_unique<OfficeClient>();
  return *m_client;
}

// The machine's own printers are left alone.
void OfficeFixture::writePrinters(const QByteArray& printers) const
{
  QFile settings(OfficeInstance::numbered(1).profileFolder + "/profile/user/psprint/psprint.conf");
  if (!QDir().mkpath(QFileInfo(settings).path()) || !settings.open(QIODevice::WriteOnly))
    qFatal("no printer can be installed");
  settings.write("[__Global_Printer_Defaults__]\nDisableCUPS=true\n" + printers);
}

void OfficeFixture::installPrinter()
{
  writePrinters("[Paper]\nPrinter=SGENPRT/Paper\nDefaultPrinter=1\nCommand=cat > " + QFile::encodeName(paper()) + "\n");
}

int OfficeFixture::printedPages() const
{
  QFile printed(paper());
  const QString content = printed.open(QIODevice::ReadOnly) ? QString::fromLatin1(printed.readAll()) : QString();
  return int(content.count(QRegularExpression("/Type ?/Page[^s]")));
}

namespace {

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
  QProcess process;
  process.start(program, arguments);
  if (!process.waitForFinished() || process.exitCode() != 0)
    qFatal("%s failed", qPrintable(program));
  return process.readAllStandardOutput();
}

} // namespace

QString OfficeFixture::printedText() const
{
  return QString::fromUtf8(outputOf("pdftotext", {paper(), "-"})).simplified();
}

int OfficeFixture::printedRed() const
{
  return int(outputOf("pdftoppm", {"-r", "25", "-l", "1", paper()}).count(QByteArray("\xff\0\0", 3)));
}

QString OfficeFixture::filesIn(const QString& name) const
{
  return QDir(folder.filePath(name)).entryList(QDir::Files | QDir::Hidden).join(u'|');
}
