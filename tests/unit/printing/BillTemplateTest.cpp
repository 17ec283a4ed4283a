#include "printing/BillTemplate.h"

#include "platform/RunTimeError.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "support/AccountSetFixture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace {

// A workbook in memory whose page starts as `page`.
struct PaperWorkbook : Spreadsheet {
  QList<QStringList>& page;
  QStringList sheets;
  explicit PaperWorkbook(QList<QStringList>& ofPage, QStringList names) : page(ofPage), sheets(std::move(names)) {}

  QStringList sheetNames() override { return sheets; }
  QList<QStringList> texts(const QString& sheet, int rows, int) override
  {
    return sheet == "sheet1" ? page.mid(0, rows) : QList<QStringList>{{"", "特殊格式设定"}};
  }
  void setText(const QString&, int row, int column, const QString& text) override { page[row - 1][column - 1] = text; }
  void insertRows(const QString&, int row, int count) override { page.insert(row - 1, count, QStringList{"", ""}); }
  void deleteRow(const QString&, int row) override { page.removeAt(row - 1); }
  void print(const QString&) override {}
  void preview(const QString&, const QString&) override {}
  void handOver(const QString&, const QString&) override {}
};

struct BillTemplateTest : testing::Test, AccountSetFixture {
  Form form{desk, "frmPayfund"};
  Grid lines{&form, "MSH"};
  QList<QStringList> page{45, QStringList{"", ""}};
  QStringList sheets{"样式分类设置", "Sheet1"};

  BillTemplateTest()
  {
    QDir(folder.path()).mkpath("PrintTemp");
    QDir(folder.path()).mkpath("TempFile");
    file.run("insert into TabPayfundBill(Code) values('FKD1')");
    file.run("insert into TabExcelTable(TabName,TabType,TabInf) values('甲.xls','付款单',x'504B00FF80')");
    page[16] = {"旧行", ""};
    page[17] = {"旧行", ""};
    lines.setRows(4);
    lines.setCols(3);
    lines.setText(1, 1, "1001");
    lines.setText(3, 1, "1002");
    lines.setText(3, 2, " 银行 ");
  }

  void print(BillTemplate::Finish finish)
  {
    BillTemplate::PrintBill_Excel(session,
                                  {.templateName = "甲.xls",
                                   .billCode = "FKD1",
                                   .headerTable = "TabPayfundBill",
                                   .placeholders =
                                       [] {
                                         return QList<BillTemplate::Placeholder>{{"?金额大写", "壹"}, {"?金额", "1"}};
                                       },
                                   .lines = &lines,
                                   .finish = finish},
                                  [this](const QString&) { return std::make_unique<PaperWorkbook>(page, sheets); });
  }

  qsizetype filesIn(const QString& name) const { return QDir(folder.filePath(name)).entryList(QDir::Files).size(); }
};

TEST_F(BillTemplateTest, LinesTakeThePlaceOfTheTwoRowsWithoutAHole)
{
  page[3][0] = "共?金额元，?金额大写";
  page[40][0] = "?金额";
  page[20][0] = "脚";
  print(BillTemplate::Finish::Print);
  EXPECT_EQ(desk.takeTexts(), "");
  EXPECT_EQ(page[3][0], "共1元，壹");
  EXPECT_EQ(page[16], QStringList({"1001", ""}));
  EXPECT_EQ(page[17], QStringList({"1002", "银行"}));
  EXPECT_EQ(page[20][0], "脚");
  EXPECT_EQ(page[40][0], "?金额"); // below the searched rows
  EXPECT_EQ(filesIn("PrintTemp"), 1);
  EXPECT_EQ(filesIn("TempFile"), 0);
}

TEST_F(BillTemplateTest, AFixedLayoutCountsOnlyOnTheLastSheet)
{
  sheets = {"Sheet1", "样式分类设置"};
  page[18][0] = "脚";
  print(BillTemplate::Finish::HandOver);
  EXPECT_EQ(page[16][0], "脚"); // nothing is inserted, both rows go
  EXPECT_EQ(filesIn("TempFile"), 1);
}

TEST_F(BillTemplateTest, AWorkbookIsUnpackedByteByByte)
{
  const QString path = folder.filePath("PrintTemp/a");
  EXPECT_EQ(BillTemplate::RestoreFileFromDb(session, path, "甲.xls"), 1);
  QFile unpacked(path);
  ASSERT_TRUE(unpacked.open(QIODevice::ReadOnly));
  EXPECT_EQ(unpacked.readAll(), QByteArray::fromHex("504B00FF80"));
}

} // namespace
