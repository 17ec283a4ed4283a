#include "OfficeFixture.h"

#include <QFile>
#include <QTcpServer>

// Templates that were put into the database to do harm.

namespace {

constexpr qint64 MostMemory = 1200; // MB

struct HostileTemplateTest : OfficeFixture {
  QTcpServer outside;

  HostileTemplateTest()
  {
    if (!outside.listen(QHostAddress::LocalHost))
      qFatal("no port is free");
  }

  QByteArray address() const { return "http://127.0.0.1:" + QByteArray::number(outside.serverPort()) + "/"; }

  // A template of one sheet, stored in a file.
  QString store(const QString& fileName, const std::function<void(OfficeClient::Book&)>& fill)
  {
    OfficeClient::Book book = newBook("sheet1");
    fill(book);
    book.store(folder.filePath(fileName));
    book.close();
    return folder.filePath(fileName);
  }

  QString printFile(const QString& path)
  {
    QFile stored(path);
    EXPECT_TRUE(stored.open(QIODevice::ReadOnly));
    return printContent(stored.readAll());
  }
  QString printContent(const QByteArray& content)
  {
    putTemplate("甲.xls", content);
    return print("甲.xls", BillTemplate::Finish::HandOver);
  }

  bool wasCalled() { return outside.waitForNewConnection(500); }
};

} // namespace

// Neither when it is opened nor when it is printed.
TEST_F(HostileTemplateTest, APictureFromOutsideIsNotFetched)
{
  installPrinter();
  const QString path = store("图.xlsx", [](OfficeClient::Book& book) { book.addSeal(5000); });
  client().edit(path, "xl/drawings/drawing1.xml", {{"r:embed=", "r:link="}});
  client().edit(path, "xl/drawings/_rels/drawing1.xml.rels", {{"Target=\"../media/", "TargetMode=\"External\" Target=\"" + address()}});
  EXPECT_EQ(printFile(path), "");
  EXPECT_FALSE(wasCalled());
}

// As a page of the web, or as a workbook of another kind, it could do what no workbook of the known formats can.
TEST_F(HostileTemplateTest, OnlyWorkbooksAreOpened)
{
  const QByteArray page =
      "<html><body><table background='" + address() + "'><tr><td><img src='" + address() + "'>1</td></tr></table></body></html>";
  const QByteArray flat = R"(<?xml version="1.0"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
    xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
    xmlns:xlink="http://www.w3.org/1999/xlink" office:mimetype="application/vnd.oasis.opendocument.spreadsheet" office:version="1.2">
  <office:body><office:spreadsheet><table:table table:name="sheet1">
    <table:shapes><draw:frame svg:width="3cm" svg:height="3cm"><draw:object xlink:type="simple" xlink:href=")" +
                          address() + R"(a.odt"/></draw:frame></table:shapes>
    <table:table-row><table:table-cell/></table:table-row>
  </table:table></office:spreadsheet></office:body>
</office:document>)";
  for (const QByteArray& content : {page, flat, QByteArray("1;2;3\n")}) {
    EXPECT_EQ(printContent(content), Failed);
    EXPECT_FALSE(wasCalled());
  }
}

// Two matrices of a gigabyte each, and an archive that unpacks to one part of a thousand times its size.
TEST_F(HostileTemplateTest, TheMachineKeepsItsMemory)
{
  const auto formula = [](const char* text) { return [text](OfficeClient::Book& book) { book.type("sheet1", 1, 1, text); }; };
  const QString rows = store("行.xlsx", formula("=RAND()"));
  client().edit(rows, "xl/worksheets/sheet1.xml", {{"</sheetData>", "<row><c/></row>" + QByteArray(140 << 20, ' ') + "</sheetData>"}});
  EXPECT_EQ(printFile(rows), Failed);

  const QString matrix = store("阵.xlsx", formula("=SUM(MUNIT(2)+MUNIT(2))*RAND()"));
  client().edit(matrix, "xl/worksheets/sheet1.xml", {{"MUNIT(2)", "MUNIT(11500)"}});
  printFile(matrix);
  for (const pid_t process : OfficeClient::processes()) {
    QFile status(QStringLiteral("/proc/%1/status").arg(process));
    ASSERT_TRUE(status.open(QIODevice::ReadOnly));
    const QByteArray all = status.readAll();
    EXPECT_LT(all.mid(all.indexOf("VmHWM:") + 6).simplified().split(' ').first().toLongLong() / 1024, MostMemory);
  }
}
