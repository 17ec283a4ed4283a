#include "OfficeFixture.h"

#include <csignal>

#include <QFile>

using com::sun::star::uno::Any;

namespace {

constexpr sal_Int32 Yellow = 0xFFFF00;
constexpr int LineHeight = 900;
constexpr sal_Int32 TextFormat = 100;

// A payment with three grid rows, the second of them empty, printed through templates of either format.
struct BillTemplateTest : OfficeFixture, testing::WithParamInterface<const char*> {
  const QString name = QString("甲.") + GetParam();
  const QString workName = "202268090000" + name;

  BillTemplateTest()
  {
    grid.setRows(4);
    grid.setCols(5);
    grid.setBlock(1, {{"", "1001", "库存现金", "1,234.50", "=1+1"}, {}, {"", "0012", " 银行 ", "-5.00"}});
  }

  // Rows 17 and 18 are replaced; the foot moves up to the lines.
  OfficeClient::Book sampleTemplate()
  {
    OfficeClient::Book book = newBook("SHEET1");
    book.type("SHEET1", 2, 2, "共?金额元，?金额大写");
    book.type("SHEET1", 40, 40, "?金额");
    book.type("SHEET1", 41, 1, "?金额");
    book.type("SHEET1", 1, 41, "?金额");
    book.setRowHeight("SHEET1", 17, LineHeight);
    for (int column = 1; column <= 4; ++column) {
      book.type("SHEET1", 17, column, "旧行");
      book.type("SHEET1", 18, column, "旧行");
      book.setProperty("SHEET1", 17, column, "CellBackColor", Any(Yellow));
    }
    book.type("SHEET1", 19, 1, "脚");
    book.type("SHEET1", 19, 3, "=SUM(C16:C18)");
    book.addSheet("附页");
    book.activate("附页");
    return book;
  }
};

} // namespace

TEST_P(BillTemplateTest, ThePageIsFilledAndHandedOver)
{
  putTemplate(name, sampleTemplate());
  EXPECT_EQ(print(name, BillTemplate::Finish::HandOver), "");
  OfficeClient::Book book = openBook();
  const QString page = "SHEET1";

  EXPECT_EQ(book.shown(page, 2, 2), "共1,002.00元，壹");
  EXPECT_EQ(book.shown(page, 40, 40), "1,002.00");
  EXPECT_EQ(book.shown(page, 1, 41), "?金额"); // beyond the searched columns
  EXPECT_EQ(book.shown(page, 41, 1), "?金额"); // and rows; two came, two went

  EXPECT_EQ(book.row(page, 17, 4), "1001|库存现金|1,234.50|=1+1");
  EXPECT_EQ(book.row(page, 18, 4), "0012|银行|-5.00|");
  EXPECT_EQ(book.row(page, 19, 3), "脚||1229.5");
  for (const int row : {17, 18}) {
    EXPECT_EQ(book.rowHeight(page, row), LineHeight);
    EXPECT_EQ(book.property(page, row, 4, "CellBackColor"), Any(Yellow));
  }
  EXPECT_NE(book.property(page, 19, 4, "CellBackColor"), Any(Yellow));

  EXPECT_EQ(book.activeSheet(), page);
  EXPECT_EQ(book.title(), "输出....");
  EXPECT_TRUE(book.isVisible());
  EXPECT_TRUE(filesIn("TempFile").contains(workName));
  EXPECT_EQ(filesIn("PrintTemp"), workName);
}

TEST_P(BillTemplateTest, ABillWithoutLinesLosesTheTwoRowsOnly)
{
  putTemplate(name, sampleTemplate());
  grid.clear();
  print(name, BillTemplate::Finish::HandOver);
  EXPECT_EQ(openBook().shown("SHEET1", 17, 1), "脚");
}

// A later sheet overrides an earlier one.
TEST_P(BillTemplateTest, AFixedLayoutCountsOnTheLastSheetOnly)
{
  for (const bool isLast : {true, false}) {
    OfficeClient::Book book = sampleTemplate();
    book.addSheet("样式分类设置");
    book.type("样式分类设置", 1, 2, "特殊格式设定");
    if (!isLast)
      book.addSheet("末页");
    putTemplate(name, book);
    print(name, BillTemplate::Finish::HandOver);
    OfficeClient::Book printed = openBook();
    EXPECT_EQ(printed.shown("SHEET1", 17, 1), isLast ? "脚" : "1001");
    printed.close();
  }
}

// A rate, a telephone and a remark keep their digits in a row that holds amounts, whatever other rows hold. Amounts are
// numbers, which the template sums, unless their cell is formatted as text.
TEST_P(BillTemplateTest, OnlyAmountsAreNumbers)
{
  const struct {
    int row;
    int column;
    const char* word;
    const char* shown;
    const char* content;
  } cells[] = {
      {3, 1, "?汇率", "6.8523", "'6.8523"}, {3, 2, "?电话", "13800138000", "'13800138000"},
      {3, 3, "?金额", "1,002.00", "1002"},  {4, 3, "=C3*2", "2004", "=C3*2"},
      {17, 1, "旧行", "1001", "'1001"},     {17, 3, "旧行", "1,234.50", "1234.5"},
      {17, 4, "旧行", "2022", "'2022"},     {18, 3, "旧行", "7", "7"},
      {18, 4, "旧行", "12.5", "'12.5"},     {19, 3, "旧行", "0.125", "0.125"},
      {20, 3, "旧行", "见附件", "见附件"},
  };
  grid.setBlock(
      1, {{"", "1001", "", "1,234.50", "2022"}, {"", "1001", "", "7", "12.5"}, {"", "1001", "", "0.125"}, {"", "1001", "", "见附件"}});
  OfficeClient::Book book = newBook("SHEET1");
  for (const auto& cell : cells)
    book.type("SHEET1", cell.row, cell.column, cell.word);
  book.type("SHEET1", 5, 1, "?金额");
  book.setProperty("SHEET1", 5, 1, "NumberFormat", Any(TextFormat));
  putTemplate(name, book);
  print(name, BillTemplate::Finish::HandOver);
  const OfficeClient::Book printed = openBook();
  for (const auto& cell : cells) {
    EXPECT_EQ(printed.shown("SHEET1", cell.row, cell.column), cell.shown);
    EXPECT_EQ(printed.formula("SHEET1", cell.row, cell.column), cell.content);
  }
  EXPECT_EQ(printed.formula("SHEET1", 5, 1), "'1,002.00");
}

// The page alone goes to the printer, whichever sheet the template was saved on, with what is beside and below its
// cells; no work file remains.
TEST_P(BillTemplateTest, ThePageIsPrinted)
{
  installPrinter();
  for (const char* active : {"附页", "sheet1"}) {
    OfficeClient::Book book = newBook("sheet1");
    book.type("sheet1", 1, 1, "?金额 beyond its own cell, and the next, to the end");
    book.addSeal(15000);
    for (const char* other : {"附页", "末页"}) {
      book.addSheet(other);
      book.type(other, 1, 1, "不印");
    }
    book.activate(active);
    putTemplate(name, book);
    EXPECT_EQ(print(name, BillTemplate::Finish::Print), "");
    EXPECT_EQ(printedPages(), 1);
    EXPECT_TRUE(printedText().contains("1,002.00 beyond its own cell, and the next, to the end")) << shown(printedText());
    EXPECT_FALSE(printedText().contains("不印"));
    EXPECT_GT(printedRed(), 500);
    QFile::remove(paper());
  }
  EXPECT_EQ(filesIn("TempFile"), "");
  EXPECT_EQ(filesIn("PrintTemp"), workName);
  EXPECT_EQ(client().open().size(), 0);
}

// A template's own print area is kept.
TEST_P(BillTemplateTest, OnlyTheTemplatesOwnAreaIsPrinted)
{
  installPrinter();
  OfficeClient::Book book = newBook("sheet1");
  book.type("sheet1", 1, 1, "within");
  book.type("sheet1", 3, 1, "outside");
  book.addSeal(15000);
  book.setPrintArea("sheet1", 2, 2);
  putTemplate(name, book);
  print(name, BillTemplate::Finish::Print);
  EXPECT_TRUE(printedText().contains("within"));
  EXPECT_FALSE(printedText().contains("outside"));
  EXPECT_EQ(printedRed(), 0);
}

TEST_P(BillTemplateTest, WithoutADisplayAPreviewIsLeftAtOnce)
{
  putTemplate(name, sampleTemplate());
  EXPECT_EQ(print(name, BillTemplate::Finish::Preview), "");
  EXPECT_EQ(filesIn("TempFile"), "");
  EXPECT_EQ(client().open().size(), 0);
}

// The next print starts the office again.
TEST_P(BillTemplateTest, AnOfficeThatDiesMidwayCostsThePrintAlone)
{
  installPrinter();
  putTemplate(name, sampleTemplate());
  for (const auto finish : {BillTemplate::Finish::Print, BillTemplate::Finish::HandOver}) {
    EXPECT_EQ(print(name, finish, [] { OfficeClient::kill(SIGKILL); }), Failed);
    EXPECT_EQ(filesIn("TempFile"), "");
  }
  EXPECT_EQ(print(name, BillTemplate::Finish::Print), "");
}

// One message, and no "Error:" box before it.
TEST_P(BillTemplateTest, APrintThatFailsEndsInTheMessage)
{
  putTemplate(name, sampleTemplate());
  EXPECT_EQ(print(name, BillTemplate::Finish::Print), Failed) << "no printer";
  for (const QByteArray& content : {QByteArray("PK"), QByteArray(70000, char(0))}) {
    putTemplate(name, content);
    EXPECT_EQ(print(name, BillTemplate::Finish::HandOver), Failed) << "not a workbook";
  }
  EXPECT_EQ(filesIn("TempFile"), "");
  file.run("drop table TabExcelTable");
  EXPECT_EQ(print(name, BillTemplate::Finish::Print), Failed) << "no table of templates";
}

INSTANTIATE_TEST_SUITE_P(Formats, BillTemplateTest, testing::Values("xlsx", "xls"),
                         [](const auto& format) { return std::string(format.param); });
