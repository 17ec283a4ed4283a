#include "OfficeFixture.h"

#include "spreadsheet/office/OfficeInstance.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

OfficeFixture::OfficeFixture()
{
  writePrinters({});
  for (const char* name : {"PrintTemp", "TempFile"})
    QDir(folder.path()).mkpath(name);
  file.run("insert into TabPayfundBill(Code) values('FKD1')");
}

OfficeClient& OfficeFixture::client()
{
  if (orThrow(session.spreadsheet.create()); !m_client)
    m_client = std::make_unique<OfficeClient>();
  return *m_client;
}

OfficeClient::Book OfficeFixture::openBook()
{
  const QList<OfficeClient::Book> books = client().open();
  if (books.size() != 1)
    throw std::runtime_error(std::to_string(books.size()) + " workbooks are open");
  return books.first();
}

OfficeClient::Book OfficeFixture::newBook(const QString& sheet)
{
  OfficeClient::Book book = client().create();
  book.rename(book.sheetNames().first(), sheet);
  return book;
}

void OfficeFixture::putTemplate(const QString& name, const QByteArray& content) const
{
  const QString sql =
      "delete from TabExcelTable where TabName='%1'; insert into TabExcelTable(TabName,TabType,TabInf) values('%1','付款单',x'%2')";
  RawDatabase(accountSetPath()).run(sql.arg(name, content.toHex()));
}

void OfficeFixture::putTemplate(const QString& name, OfficeClient::Book book) const
{
  QFile stored(folder.filePath(name));
  book.store(stored.fileName());
  book.close();
  EXPECT_TRUE(stored.open(QIODevice::ReadOnly));
  putTemplate(name, stored.readAll());
}

QString OfficeFixture::print(const QString& name, BillTemplate::Finish finish, const std::function<void()>& midway)
{
  BillTemplate::PrintBill_Excel(session, {.templateName = name,
                                          .billCode = "FKD1",
                                          .headerTable = "TabPayfundBill",
                                          .placeholders =
                                              [&] {
                                                if (midway)
                                                  midway();
                                                return QList<BillTemplate::Placeholder>{{"?金额大写", "壹"},
                                                                                        {"?金额", "1,002.00", true},
                                                                                        {"?编号", "1001"},
                                                                                        {"?汇率", "6.8523"},
                                                                                        {"?电话", "13800138000"}};
                                              },
                                          .lines = &grid,
                                          .amountColumn = 3,
                                          .finish = finish});
  return desk.takeTexts();
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

int OfficeFixture::printedPages() const
{
  QFile printed(paper());
  const QString content = printed.open(QIODevice::ReadOnly) ? QString::fromLatin1(printed.readAll()) : QString();
  return int(content.count(QRegularExpression("/Type ?/Page[^s]")));
}

QString OfficeFixture::printedText() const
{
  return QString(outputOf("pdftotext", {paper(), "-"})).simplified();
}

int OfficeFixture::printedRed() const
{
  return int(outputOf("pdftoppm", {"-r", "25", "-l", "1", paper()}).count(QByteArray("\xff\0\0", 3)));
}

QString OfficeFixture::filesIn(const QString& name) const
{
  return QDir(folder.filePath(name)).entryList(QDir::Files | QDir::Hidden).join('|');
}
