#include "printing/ModSavePrintData.h"

#include "platform/AnsiText.h"
#include "platform/RunTimeError.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace {

struct PrintFileTest : testing::Test, SessionFixture {
  Form form{desk, "frmPayfund"};
  Grid grid{&form, "MSH"};

  QString path() const { return machine.inProgramFolder(ModSavePrintData::FileName); }

  QByteArray write(const ModSavePrintData::PrintGrid& printed = {})
  {
    ModSavePrintData::WritePrintFile(session, printed, " 付款单 ", "直接打印");
    QFile written(path());
    EXPECT_TRUE(written.open(QIODevice::ReadOnly));
    return written.readAll();
  }

  QString lines(const ModSavePrintData::PrintGrid& printed = {}) { return AnsiText::decode(write(printed)).remove('\r'); }
};

TEST_F(PrintFileTest, IsInTheAnsiCodePageWithBothLineEnds)
{
  EXPECT_EQ(write(), AnsiText::encode("打印表表名:\r\nprinttablename=付款单\r\n打印类别:\r\nprinttype=直接打印\r\n"
                                      "headcount:\r\ncount=0\r\nfootcount:\r\ncount=0\r\nmsh:\r\nmshrows=0\r\nmshcols=0\r\n"
                                      "批量连续打印:\r\naccountantprintsign=\r\n"));
}

TEST_F(PrintFileTest, AGapInTheStringsLosesTheLastOfThem)
{
  for (const int index : {1, 2, 4, 5})
    ModSavePrintData::SetPrintHeadString(session, QString::number(index), index);
  ModSavePrintData::SetPrintFootString(session, "合计", 1);
  const QString written = lines();
  EXPECT_TRUE(written.contains("headcount:\ncount=4\nheadcontent:\nstring=1\nstring=2\nstring=\nstring=4\nfootcount:\n"))
      << written.toStdString();
  EXPECT_TRUE(written.contains("footcontent:\nstring=合计\nmsh:\n")) << written.toStdString();
  // They stay for the next job, which may set fewer.
  ModSavePrintData::SetPrintHeadString(session, "新", 1);
  EXPECT_TRUE(lines().contains("headcontent:\nstring=新\nstring=2\n"));
  EXPECT_THROW(ModSavePrintData::SetPrintHeadString(session, "x", 21), RunTimeError);
  EXPECT_THROW(ModSavePrintData::SetPrintFootString(session, "x", -1), RunTimeError);
}

TEST_F(PrintFileTest, SkippedRowsAndHiddenColumnsStayOut)
{
  grid.setRows(4);
  grid.setCols(4);
  for (int row = 0; row < 4; ++row)
    for (int col = 0; col < 4; ++col)
      grid.setText(row, col, QString("%1%2").arg(row).arg(col));
  grid.setText(2, 3, "甲\r\n乙");
  grid.setColWidth(2, 0);
  const QString written = lines({.grid = &grid, .leftSkip = 1, .bottomSkip = 1});
  EXPECT_TRUE(written.contains("mshrows=3\nmshcols=2\nmshcontent:\n")) << written.toStdString();
  EXPECT_EQ(written.count("cell:"), 6);
  EXPECT_TRUE(written.contains("row=2\ncol=1\nrowheight=300\ncolwidth=960\nstring=甲||乙\n")) << written.toStdString();
  EXPECT_FALSE(written.contains("string=31") || written.contains("string=02")) << written.toStdString();
  // The right skip shrinks the count, not what is written.
  EXPECT_EQ(lines({.grid = &grid, .leftSkip = 1, .rightSkip = 1}).count("col=1\n"), 4);
}

TEST_F(PrintFileTest, AFileThatCannotBeWrittenIsARunTimeError)
{
  QDir().mkdir(path());
  EXPECT_THROW(ModSavePrintData::WritePrintFile(session, {}, "付款单", "直接打印"), RunTimeError);
}

TEST_F(PrintFileTest, TheTargetOfALinkIsLeftAlone)
{
  const QByteArray other = QFile::encodeName(folder.filePath("other"));
  ASSERT_EQ(symlink(other.constData(), QFile::encodeName(path()).constData()), 0);
  EXPECT_TRUE(write().startsWith(AnsiText::encode("打印表表名:")));
  EXPECT_FALSE(QFile::exists(folder.filePath("other")));
}

} // namespace
