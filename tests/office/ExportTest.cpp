#include "OfficeFixture.h"

#include "platform/RunTimeError.h"
#include "printing/frmExport.h"

#include <csignal>

namespace {

struct ExportTest : OfficeFixture {
  frmExport progress{session};

  // More rows than go over in one call.
  void fillGrid()
  {
    grid.setRows(2000);
    grid.setCols(3);
    for (int row = 0; row < grid.rows(); ++row)
      grid.setText(row, 2, QString::number(row));
  }
};

} // namespace

TEST_F(ExportTest, ShownCellsKeepTheirTextAndPlace)
{
  grid.setRows(4);
  grid.setCols(6);
  grid.setColWidth(1, 0);
  grid.setColWidth(2, 4 * 1440);
  const QStringList texts{"0012", "藏", "=1+1", "1,234.50", "2022-06-08", "'a"};
  for (int row = 0; row < grid.rows(); ++row)
    for (int col = 0; col < grid.cols(); ++col)
      grid.setText(row, col, texts[col]);
  progress.Export2Excel(grid);

  const OfficeClient::Book book = openBook();
  const QString sheet = book.sheetNames().first();
  EXPECT_EQ(book.row(sheet, 1, 6), "0012||=1+1|1,234.50|2022-06-08|'a");
  EXPECT_EQ(book.formula(sheet, 1, 4), "'1,234.50");
  EXPECT_EQ(book.row(sheet, 4, 6), book.row(sheet, 1, 6));
  EXPECT_EQ(book.row(sheet, 5, 6), "|||||");
  EXPECT_EQ(book.columnWidth(sheet, 3), 5 * 2540);
  EXPECT_TRUE(book.isVisible());
  EXPECT_FALSE(progress.isOpen());
  EXPECT_FALSE(desk.busy);
}

// Every kind of line break; rows without one keep the height of the grid's.
TEST_F(ExportTest, ACellWithALineBreakShowsWhole)
{
  grid.setRows(3);
  grid.setCols(3);
  grid.setText(0, 1, "一");
  grid.setText(1, 1, "一\r\n二\n三\r四");
  progress.Export2Excel(grid);
  const OfficeClient::Book book = openBook();
  const QString sheet = book.sheetNames().first();
  EXPECT_EQ(book.shown(sheet, 2, 2), "一\n二\n三\n四");
  EXPECT_GT(book.rowHeight(sheet, 2), 3 * book.rowHeight(sheet, 1));
  EXPECT_EQ(book.rowHeight(sheet, 3), book.rowHeight(sheet, 1));
  EXPECT_EQ(book.property(sheet, 2, 2, "IsTextWrapped"), com::sun::star::uno::Any(true));
}

TEST_F(ExportTest, TheBarMovesToItsEnd)
{
  fillGrid();
  QList<int> seen;
  desk.inWork = [&](Form& shown) { seen.append(shown.find<ProgressBar>("prg")->value()); };
  progress.Export2Excel(grid);
  EXPECT_GE(seen.size(), 3);
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
  EXPECT_EQ(seen.value(seen.size() - 1), 100);
  const OfficeClient::Book book = openBook();
  EXPECT_EQ(book.shown(book.sheetNames().first(), 2000, 3), "1999");
}

// By its button, and by closing its window.
TEST_F(ExportTest, WhoLeavesGetsNoWorkbook)
{
  fillGrid();
  for (const bool byButton : {true, false}) {
    frmExport one{session};
    int blocks = 0;
    desk.inWork = [&](Form& shown) {
      ++blocks;
      byButton ? shown.find<Button>("cmdQuit")->click() : shown.close();
    };
    one.Export2Excel(grid);
    EXPECT_EQ(blocks, 1);
    EXPECT_FALSE(one.isOpen());
    EXPECT_EQ(client().open().size(), 0);
  }
}

// The screen's own handler shows the error; the next export starts the office again.
TEST_F(ExportTest, AnOfficeThatDiesEndsInARunTimeError)
{
  fillGrid();
  desk.inWork = [](Form&) { OfficeClient::kill(SIGKILL); };
  EXPECT_THROW(progress.Export2Excel(grid), RunTimeError);
  EXPECT_FALSE(progress.isOpen());
  desk.inWork = nullptr;
  frmExport again{session};
  again.Export2Excel(grid);
  EXPECT_EQ(client().open().size(), 1);
}

TEST_F(ExportTest, AMachineWithoutADriverSaysSo)
{
  const auto workbook = Spreadsheet(folder.path()).create();
  ASSERT_FALSE(workbook);
  EXPECT_EQ(workbook.error().number(), RunTimeError::NoSpreadsheet);
}
