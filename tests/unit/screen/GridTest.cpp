#include "screen/Grid.h"

#include "screen/Controls.h"
#include "screen/Form.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

namespace {

struct GridTest : testing::Test {
  FakeDesk desk;
  Form form{desk, "frmTest"};
  Grid grid{&form, "MSH"};

  GridTest()
  {
    desk.show(form);
    grid.setRows(15);
    grid.setCols(5);
  }

  QString current() const { return QString("%1,%2").arg(grid.row()).arg(grid.col()); }
};

} // namespace

TEST_F(GridTest, KeysMoveTheCurrentCellInsideTheGridAndPastHiddenColumns)
{
  const struct {
    int row, col;
    Key::Code key;
    const char* expected;
  } rows[] = {
      {5, 3, Key::Up, "4,3"},      {1, 3, Key::Up, "1,3"},     {2, 3, Key::Down, "3,3"},      {14, 3, Key::Down, "14,3"},
      {5, 3, Key::Left, "5,1"},    {5, 1, Key::Right, "5,3"},  {5, 3, Key::Home, "5,1"},      {5, 1, Key::End, "5,4"},
      {12, 1, Key::PageUp, "2,1"}, {5, 1, Key::PageUp, "1,1"}, {5, 1, Key::PageDown, "14,1"},
  };
  grid.setColWidth(2, 0);
  for (const auto& [row, col, key, expected] : rows) {
    grid.setCurrent(row, col);
    grid.press({key, {}});
    EXPECT_EQ(current(), expected) << row << ',' << col << " key " << key;
  }
}

TEST_F(GridTest, OnlyAFullNotchOfTheWheelTurnsAPageAndOnlyInAListWithTheFocus)
{
  const auto rowAfter = [this](int step) {
    grid.wheel(step);
    return grid.row();
  };
  form.setFocus(grid);
  EXPECT_EQ(rowAfter(-120), 1);
  grid.setRowList(true);
  EXPECT_EQ(rowAfter(-120), 11);
  EXPECT_EQ(rowAfter(-60), 11);
  EXPECT_EQ(rowAfter(-240), 11);
  EXPECT_EQ(rowAfter(120), 1);
  TextBox other(&form, "Txt");
  form.setFocus(other);
  EXPECT_EQ(rowAfter(-120), 1);
}

TEST_F(GridTest, TheCurrentCellStaysInsideAShrinkingGrid)
{
  grid.setCurrent(14, 4);
  grid.setRows(3);
  grid.setCols(2);
  EXPECT_EQ(current(), "2,1");
  grid.setRows(0);
  grid.setCols(-1);
  EXPECT_EQ(grid.rows() * 100 + grid.cols(), 101);
  grid.setCurrent(99, 99);
  EXPECT_EQ(current(), "0,0");
}

TEST_F(GridTest, RowsOnDemandAreComputedUntilTheyAreWrittenTo)
{
  QString mark = "a";
  grid.setRowsOnDemand(1, 20, [&](int row, int col) { return QString("%1%2,%3").arg(mark).arg(row).arg(col); });
  EXPECT_EQ(grid.rows(), 21);
  grid.addRow();
  grid.setText(3, 1, "own");
  mark = "b";
  EXPECT_EQ(grid.text(1, 4) + grid.text(4, 0) + grid.text(20, 4), "b0,4b3,0b19,4");
  EXPECT_EQ(grid.text(3, 0) + grid.text(3, 1), "a2,0own") << "a row that was written to stays as it was then";
  EXPECT_EQ(grid.text(21, 1), "");
  grid.setCols(7);
  EXPECT_EQ(grid.text(3, 6) + grid.text(4, 6), "b3,6");
  grid.clear();
  EXPECT_EQ(grid.text(1, 1), "");
}

TEST_F(GridTest, ColumnsAlignAndColourTheirCells)
{
  grid.setColColor(1, 255);
  grid.setTotalsRow(true);
  EXPECT_EQ(grid.cellColor(0, 1), 0) << "a heading";
  EXPECT_EQ(grid.cellColor(13, 1), 255);
  EXPECT_EQ(grid.cellColor(14, 1), 0) << "the totals";

  const auto aligned = [this](int row, int col) {
    return grid.model().index(row - 1, col - 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignHorizontal_Mask;
  };
  grid.setText(2, 3, "-1,200.00");
  grid.setText(2, 4, "1001");
  grid.setHoldsCodes(4);
  EXPECT_EQ(aligned(2, 3), Qt::AlignRight) << "an amount";
  EXPECT_EQ(aligned(3, 2), Qt::AlignLeft);
  EXPECT_EQ(aligned(2, 4), Qt::AlignLeft) << "a code";
  grid.setColAlignment(3, Grid::AlignCenter);
  EXPECT_EQ(aligned(2, 3), Qt::AlignHCenter);
}
