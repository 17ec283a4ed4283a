#include "screen/Grid.h"

#include "screen/CellEditor.h"
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
  CellEditor editor{&form, grid};

  GridTest()
  {
    desk.show(form);
    grid.setRows(15);
    grid.setCols(5);
  }

  QString current() const { return u"%1,%2"_s.arg(grid.row()).arg(grid.col()); }
};

} // namespace

TEST_F(GridTest, KeysMoveTheCurrentCellInsideTheGridAndPastHiddenCells)
{
  struct Row {
    int row, col;
    Key::Code key;
    QString expected;
  };
  grid.setColWidth(2, 0);
  grid.setRowHeight(3, 0);
  for (const auto& [row, col, key, expected] : {
           Row{5, 3, Key::Up, u"4,3"_s},
           Row{4, 3, Key::Up, u"2,3"_s},
           Row{1, 3, Key::Up, u"1,3"_s},
           Row{2, 3, Key::Down, u"4,3"_s},
           Row{14, 3, Key::Down, u"14,3"_s},
           Row{5, 3, Key::Left, u"5,1"_s},
           Row{5, 1, Key::Left, u"5,1"_s},
           Row{5, 1, Key::Right, u"5,3"_s},
           Row{5, 4, Key::Right, u"5,4"_s},
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

TEST_F(GridTest, EveryCellHasATextAndOutsideThereIsNone)
{
  grid.setText(99, 0, u"x"_s);
  grid.setText(-1, 0, u"x"_s);
  EXPECT_EQ(grid.text(99, 0), u""_s);
  grid.setText(2, 2, u"x"_s);
  grid.setCols(2);
  grid.setCols(5);
  EXPECT_EQ(grid.text(2, 2), u""_s) << "a column that went takes its texts along";
  grid.setBlock(14, {{u"a"_s, u"b"_s}, {u"c"_s}});
  EXPECT_EQ(grid.rows(), 16);
  EXPECT_EQ(grid.text(15, 0) + grid.text(15, 4), u"c"_s);
  grid.clear();
  EXPECT_EQ(grid.text(15, 0), u""_s);
  EXPECT_EQ(grid.rows(), 16);
}

TEST_F(GridTest, RowsOnDemandAreAskedForTheirTextsUntilTheyAreWrittenTo)
{
  QString mark = u"a"_s;
  grid.setRowsOnDemand(1, 20, [&](int row, int col) { return u"%1%2,%3"_s.arg(mark).arg(row).arg(col); });
  EXPECT_EQ(grid.rows(), 21);
  grid.addRow();
  grid.setText(3, 1, u"own"_s);
  mark = u"b"_s;
  grid.removeRow(2);
  EXPECT_EQ(grid.text(1, 4) + grid.text(3, 0) + grid.text(19, 4), u"b0,4b3,0b19,4"_s);
  EXPECT_EQ(grid.text(2, 0) + grid.text(2, 1), u"a2,0own"_s) << "what was written to stays as it was then";
  EXPECT_EQ(grid.text(20, 1), u""_s);
  grid.setCols(7);
  EXPECT_EQ(grid.text(2, 6) + grid.text(3, 6), u"b3,6"_s);
  grid.clear();
  EXPECT_EQ(grid.text(1, 1), u""_s);
}

TEST_F(GridTest, ARemovedRowTakesItsColourAndLeavesTheOthersTheirs)
{
  for (int row = 1; row <= 3; ++row) {
    grid.setText(row, 1, QString::number(row));
    grid.setCellColor(row, 1, row);
  }
  grid.removeRow(2);
  EXPECT_EQ(grid.rows(), 14);
  EXPECT_EQ(grid.text(2, 1), u"3"_s);
  EXPECT_EQ(grid.cellColor(1, 1), 1);
  EXPECT_EQ(grid.cellColor(2, 1), 3);
  EXPECT_EQ(grid.cellColor(3, 1), 0);
}

TEST_F(GridTest, AKeyMovesFirstAndThenRunsTheHandlerOverTheNewCell)
{
  QString seen;
  int moves = 0;
  grid.onCellChange = [&] { ++moves; };
  grid.onKeyDown = [&](const Key&) { seen = current(); };
  grid.setCurrent(1, 1);
  EXPECT_EQ(moves, 0) << "it stood there already";
  grid.press({Key::Down, {}, false});
  EXPECT_EQ(seen, u"2,1"_s);
  EXPECT_EQ(moves, 1);
}

TEST_F(GridTest, AClickRunsMouseDownThenMovesThenClicks)
{
  QStringList events;
  grid.onMouseDown = [&] { events.append(u"down at "_s + current()); };
  grid.onClick = [&] { events.append(u"click at "_s + current()); };
  grid.onDoubleClick = [&] { events.append(u"double at "_s + current()); };
  grid.doubleClickCell(3, 2);
  EXPECT_EQ(events.join(u", "_s), u"down at 1,1, click at 3,2, double at 3,2"_s);
  EXPECT_EQ(form.focused(), &grid);
  grid.clickCell(99, 1);
  grid.setEnabled(false);
  grid.clickCell(1, 1);
  EXPECT_EQ(current(), u"3,2"_s);
}

TEST_F(GridTest, TheEditorOpensWithItsTextMarkedAndWithoutAChange)
{
  int changes = 0;
  editor.onChange = [&] { changes += editor.isVisible() ? 1 : 0; };
  EXPECT_FALSE(editor.isVisible());
  editor.open(u"1000"_s);
  EXPECT_TRUE(editor.isVisible());
  EXPECT_TRUE(editor.isAllSelected());
  EXPECT_EQ(form.focused(), &editor);
  EXPECT_EQ(changes, 0);
  editor.press(Key::character(u"5"_s));
  EXPECT_EQ(editor.text(), u"5"_s);
  EXPECT_EQ(changes, 1);
  editor.open(u"7"_s);
  EXPECT_EQ(changes, 1) << "another cell is no change";
  editor.openAtEnd(u"7"_s);
  editor.press(Key::character(u"5"_s));
  EXPECT_EQ(editor.text(), u"75"_s);
}

TEST_F(GridTest, TheEditorHandsKeysToItsGrid)
{
  editor.open(u"x"_s);
  editor.passToGrid({Key::Right, {}, false});
  EXPECT_EQ(current(), u"1,2"_s);
  EXPECT_EQ(form.focused(), &grid);
  EXPECT_TRUE(editor.isVisible()) << "it stays as it is until the form hides it";
}

TEST_F(GridTest, ALongListIsSetInOneStep)
{
  int layouts = 0;
  QObject::connect(&grid, &Grid::layoutChanged, [&] { ++layouts; });
  grid.setCols(25);
  const QList<QStringList> rows(32766, QStringList(25, u"x"_s));
  grid.setBlock(1, rows);
  EXPECT_EQ(grid.rows(), 32767);
  EXPECT_EQ(layouts, 2);
}
