#include "OfficeFixture.h"

#include "printing/BillTemplate.h"
#include "screen/Form.h"
#include "screen/Grid.h"

#include <gtest/gtest.h>

#include <csignal>

#include <QDir>
#include <QFile>

using com::sun::star::uno::Any;

namespace {

constexpr sal_Int32 Yellow = 0xFFFF00;
constexpr int LineHeight = 900;

// A payment with three grid rows, the second of them blank, printed through templates made by hand.
struct BillTemplateTest : OfficeFixture, testing::WithParamInterface<const char*> {
  Form form{desk, "frmPayfund"};
  Grid lines{&form, "MSH"};

  BillTemplateTest()
  {
    QDir(folder.path()).mkpath("PrintTemp");
    QDir(folder.path()).mkpath("TempFile");
    file.run("insert into TabPayfundBill(Code) values('FKD1')");
    lines.setRows(4);
    lines.setCols(5);
    lines.setText(1, 1, "1001");
    lines.setText(1, 2, "库存现金");
    lines.setText(1, 3, "1,234.50");
    lines.setText(1, 4, "=1+1");
    lines.setText(3, 1, "0012");
    lines.setText(3, 2, " 银行 ");
    lines.setText(3, 3, "-5.00");
  }

  // Rows 17 and 18 hold what goes; the foot behind them comes up to the lines.
  OfficeClient::Book blankTemplate()
  {
    OfficeClient::Book book = client().create();
    book.rename(book.sheetNames().first(), "SHEET1");
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

  // Stores it in the database, and closes it unless it is wanted again.
  void putTemplate(OfficeClient::Book book, bool isLast = true)
  {
    const QString path = folder.filePath(name());
    book.store(path);
    if (isLast)
      book.close();
    QFile stored(path);
    ASSERT_TRUE(stored.open(QIODevice::ReadOnly));
    file.run("delete from TabExcelTable");
    file.run("insert into TabExcelTable(TabName,TabType,TabInf) values('" + name() + "','付款单',x'" + stored.readAll().toHex() + "')");
  }

  QString name() const { return QStringLiteral("甲.%1").arg(QString::fromLatin1(GetParam())); }

  void print(
      BillTemplate::Finish finish, const std::function<void()>& midway = [] {})
  {
    BillTemplate::PrintBill_Excel(session, {.templateName = name(),
                                            .billCode = "FKD1",
                                            .headerTable = "TabPayfundBill",
                                            .placeholders =
                                                [&] {
                                                  midway();
                                                  return QList<BillTemplate::Placeholder>{{"?金额大写", "壹"},
                                                                                          {"?金额", "1,002.00", true},
                                                                                          {"?编号", "1001"},
                                                                                          {"?汇率", "6.8523"},
                                                                                          {"?电话", "13800138000"}};
                                                },
                                            .lines = &lines,
                                            .amountColumn = 3,
                                            .finish = finish});
  }

  QString workName() const { return "202268090000" + name(); }
};

} // namespace

TEST_P(BillTemplateTest, ThePageIsFilledAndHandedOver)
{
  putTemplate(blankTemplate());
  print(BillTemplate::Finish::HandOver);
  EXPECT_EQ(desk.takeTexts(), "");
  ASSERT_EQ(client().open().size(), 1);
  OfficeClient::Book book = client().open().first();
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
  EXPECT_TRUE(filesIn("TempFile").contains(workName()));
  EXPECT_EQ(filesIn("PrintTemp"), workName());
}

TEST_P(BillTemplateTest, ABillWithoutLinesLosesTheTwoRowsOnly)
{
  putTemplate(blankTemplate());
  lines.clear();
  print(BillTemplate::Finish::HandOver);
  ASSERT_EQ(client().open().size(), 1);
  EXPECT_EQ(client().open().first().shown("SHEET1", 17, 1), "脚");
}

// A later sheet takes back what an earlier one asked for.
TEST_P(BillTemplateTest, AFixedLayoutCountsOnTheLastSheetOnly)
{
  for (const bool isLast : {true, false}) {
    OfficeClient::Book book = blankTemplate();
    book.addSheet("样式分类设置");
    book.type("样式分类设置", 1, 2, "特殊格式设定");
    if (!isLast)
      book.addSheet("末页");
    putTemplate(book);
    print(BillTemplate::Finish::HandOver);
    ASSERT_EQ(client().open().size(), 1);
    OfficeClient::Book printed = client().open().first();
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
  lines.setRows(5);
  const QStringList amounts{"1,234.50", "7", "0.125", "见附件"};
  const QStringList remarks{"2022", "12.5", "", ""};
  for (int row = 0; row < amounts.size(); ++row) {
    lines.setText(row + 1, 1, "1001");
    lines.setText(row + 1, 3, amounts[row]);
    lines.setText(row + 1, 4, remarks[row]);
  }
  OfficeClient::Book book = client().create();
  book.rename(book.sheetNames().first(), "SHEET1");
  for (const auto& cell : cells)
    book.type("SHEET1", cell.row, cell.column, cell.word);
  book.type("SHEET1", 5, 1, "?金额");
  book.setTextFormat("SHEET1", 5, 1);
  putTemplate(book);
  print(BillTemplate::Finish::HandOver);
  ASSERT_EQ(client().open().size(), 1);
  const OfficeClient::Book printed = client().open().first();
  for (const auto& cell : cells) {
    EXPECT_EQ(printed.shown("SHEET1", cell.row, cell.column), cell.shown);
    EXPECT_EQ(printed.formula("SHEET1", cell.row, cell.column), cell.content);
  }
  EXPECT_EQ(printed.formula("SHEET1", 5, 1), "'1,002.00");
}

// The page alone goes to the printer, whichever sheet the template was saved on, with what lies beside and below its
// cells; nothing is left of the work.
TEST_P(BillTemplateTest, ThePageIsPrinted)
{
  installPrinter();
  OfficeClient::Book book = client().create();
  book.rename(book.sheetNames().first(), "sheet1");
  book.type("sheet1", 1, 1, "?金额 beyond its own cell, and the next, to the end");
  book.addSeal(15000);
  for (const char* other : {"附页", "末页"}) {
    book.addSheet(other);
    book.type(other, 1, 1, "不印");
  }
  for (const char* active : {"附页", "sheet1"}) {
    book.activate(active);
    putTemplate(book, active == QStringLiteral("sheet1"));
    print(BillTemplate::Finish::Print);
    EXPECT_EQ(desk.takeTexts(), "");
    EXPECT_EQ(printedPages(), 1);
    EXPECT_TRUE(printedText().contains("1,002.00 beyond its own cell, and the next, to the end")) << shown(printedText());
    EXPECT_FALSE(printedText().contains("不印"));
    EXPECT_GT(printedRed(), 500);
    QFile::remove(paper());
  }
  EXPECT_EQ(filesIn("TempFile"), "");
  EXPECT_EQ(filesIn("PrintTemp"), workName());
  EXPECT_EQ(client().open().size(), 0);
}

// A template's own print area is kept.
TEST_P(BillTemplateTest, OnlyTheTemplatesOwnAreaIsPrinted)
{
  installPrinter();
  OfficeClient::Book book = client().create();
  book.rename(book.sheetNames().first(), "sheet1");
  book.type("sheet1", 1, 1, "within");
  book.type("sheet1", 3, 1, "outside");
  book.addSeal(15000);
  book.setPrintArea("sheet1", 2, 2);
  putTemplate(book);
  print(BillTemplate::Finish::Print);
  EXPECT_TRUE(printedText().contains("within"));
  EXPECT_FALSE(printedText().contains("outside"));
  EXPECT_EQ(printedRed(), 0);
}

// The one message of a print, and no "Error:" box before it.
TEST_P(BillTemplateTest, ATemplateThatCannotBeReadEndsInTheMessage)
{
  file.run("drop table TabExcelTable");
  print(BillTemplate::Finish::Print);
  EXPECT_EQ(desk.takeTexts(), "操作发生不可预测性错误！请退出软件重启电脑后再操作！");
}

TEST_P(BillTemplateTest, WithoutAPrinterThePrintEndsInTheMessage)
{
  putTemplate(blankTemplate());
  print(BillTemplate::Finish::Print);
  EXPECT_EQ(desk.takeTexts(), "操作发生不可预测性错误！请退出软件重启电脑后再操作！");
  EXPECT_EQ(filesIn("TempFile"), "");
}

TEST_P(BillTemplateTest, WithoutADisplayAPreviewIsLeftAtOnce)
{
  putTemplate(blankTemplate());
  print(BillTemplate::Finish::Preview);
  EXPECT_EQ(desk.takeTexts(), "");
  EXPECT_EQ(filesIn("TempFile"), "");
  EXPECT_EQ(client().open().size(), 0);
}

// The next print starts the office anew.
TEST_P(BillTemplateTest, AnOfficeThatDiesMidwayCostsThePrintAlone)
{
  installPrinter();
  putTemplate(blankTemplate());
  for (const auto finish : {BillTemplate::Finish::Print, BillTemplate::Finish::HandOver}) {
    print(finish, [] { OfficeClient::kill(SIGKILL); });
    EXPECT_EQ(desk.takeTexts(), "操作发生不可预测性错误！请退出软件重启电脑后再操作！");
    EXPECT_EQ(filesIn("TempFile"), "");
  }
  print(BillTemplate::Finish::Print);
  EXPECT_EQ(desk.takeTexts(), "");
}

TEST_P(BillTemplateTest, WhatIsNoWorkbookEndsInTheMessage)
{
  for (const QByteArray& content : {QByteArray("PK"), QByteArray(70000, char(0))}) {
    file.run("delete from TabExcelTable");
    file.run("insert into TabExcelTable(TabName,TabType,TabInf) values('" + name() + "','付款单',x'" + content.toHex() + "')");
    print(BillTemplate::Finish::HandOver);
    EXPECT_EQ(desk.takeTexts(), "操作发生不可预测性错误！请退出软件重启电脑后再操作！");
    EXPECT_EQ(filesIn("TempFile"), "");
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, BillTemplateTest, testing::Values("xlsx", "xls"),
                         [](const auto& format) { return std::string(format.param); });
