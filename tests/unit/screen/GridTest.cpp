#include "screen/Grid.h"

#include "screen/Form.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct GridTest : testing::Test {
  FakeDesk desk;
  Form form{desk, u"frmTest"_s};
  Grid grid{&form, u"MSH"_s};

  GridTest()
  {
    desk.show(form);
    grid.setRows(15);
    grid.setCols(5);
  }

  QString current() const { return u"%1,%2"_s.arg(grid.row()).arg(grid.col()); }
};

} // namespace

TEST_F(GridTest, KeysMoveTheCurrentCellInsideTheGridAndPastHiddenColumns)
{
  struct Row {
    int row, col;
    Key::Code key;
    QString expected;
  };
  grid.setColWidth(2, 0);
  for (const auto& [row, col, key, expected] : {
           Row{5, 3, Key::Up, u"4,3"_s},
           Row{1, 3, Key::Up, u"1,3"_s},
           Row{2, 3, Key::Down, u"3,3"_s},
           Row{14, 3, Key::Down, u"14,3"_s},
           Row{5, 3, Key::Left, u"5,1"_s},
           Row{5, 1, Key::Right, u"5,3"_s},
           Row{5, 3, Key::Home, u"5,1"_s},
           Row{5, 1, Key::End, u"5,4"_s},
           Row{12, 1, Key::PageUp, u"2,1"_s},
           Row{5, 1, Key::PageUp, u"1,1"_s},
           Row{5, 1, Key::PageDown, u"14,1"_s},
       }) {
    grid.setCurrent(row, col);
    grid.press({key, {}, false});
    EXPECT_EQ(current(), expected) << row << ',' << col << " key " << key;
  }
}

TEST_F(GridTest, TheCurrentCellStaysInsideAShrinkingGrid)
{
  grid.setCurrent(14, 4);
  grid.setRows(3);
  grid.setCols(2);
  EXPECT_EQ(current(), u"2,1"_s);
  grid.setRows(0);
  grid.setCols(-1);
  EXPECT_EQ(grid.rows() * 100 + grid.cols(), 101);
  grid.setCurrent(99, 99);
  EXPECT_EQ(current(), u"0,0"_s);
}

TEST_F(GridTest, RowsOnDemandAreAskedForTheirTextsUntilTheyAreWrittenTo)
{
  QString mark = u"a"_s;
  grid.setRowsOnDemand(1, 20, [&](int row, int col) { return u"%1%2,%3"_s.arg(mark).arg(row).arg(col); });
  EXPECT_EQ(grid.rows(), 21);
  grid.addRow();
  grid.setText(3, 1, u"own"_s);
  mark = u"b"_s;
  EXPECT_EQ(grid.text(1, 4) + grid.text(4, 0) + grid.text(20, 4), u"b0,4b3,0b19,4"_s);
  EXPECT_EQ(grid.text(3, 0) + grid.text(3, 1), u"a2,0own"_s) << "what was written to stays as it was then";
  EXPECT_EQ(grid.text(21, 1), u""_s);
  grid.setCols(7);
  EXPECT_EQ(grid.text(3, 6) + grid.text(4, 6), u"b3,6"_s);
  grid.clear();
  EXPECT_EQ(grid.text(1, 1), u""_s);
}

TEST_F(GridTest, AColourIsOfTheRowsBetweenHeadingsAndTotals)
{
  grid.setColColor(1, 255);
  grid.setTotalsRow(true);
  EXPECT_EQ(grid.cellColor(0, 1), 0);
  EXPECT_EQ(grid.cellColor(13, 1), 255);
  EXPECT_EQ(grid.cellColor(14, 1), 0);
}
