#include "printing/frmExport.h"

#include "screen/Grid.h"
#include "session/Session.h"
#include "spreadsheet/Spreadsheet.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A block is passed in one call. Between blocks the progress bar moves and the operator can cancel.
constexpr int RowsInBlock = 512;

// Workbooks have one kind of line break.
QString withPlainBreaks(QString text)
{
  return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

QStringList shownTexts(const Grid& grid, int row)
{
  QStringList texts;
  texts.reserve(grid.cols());
  for (int col = 0; col < grid.cols(); ++col)
    texts.append(grid.colWidth(col) != 0 ? withPlainBreaks(grid.text(row, col)) : QString());
  return texts;
}

QList<QStringList> shownTexts(const Grid& grid, int from, int to)
{
  QList<QStringList> block;
  block.reserve(to - from);
  for (int row = from; row < to; ++row)
    block.append(shownTexts(grid, row));
  return block;
}

QList<Workbook::Cell> brokenCells(const QList<QStringList>& block, int firstRow)
{
  QList<Workbook::Cell> broken;
  for (int row = 0; row < block.size(); ++row)
    for (int column = 0; column < block[row].size(); ++column)
      if (block[row][column].contains(u'\n'))
        broken.append({firstRow + row, column + 1});
  return broken;
}

// A quarter wider than on the screen: spreadsheet fonts are wider.
QList<int> widthsOf(const Grid& grid)
{
  QList<int> widths;
  for (int col = 0; col < grid.cols(); ++col)
    widths.append(grid.colWidth(col) * 5 / 4);
  return widths;
}

} // namespace

frmExport::frmExport(Session& ofSession) : Form(ofSession.desk, "frmExport"), m_session(ofSession)
{
  setCaption(u"数据导出"_s);
  cmdQuit.setCaption(u"退出(&Q)"_s);
  cmdQuit.onClick = [this] { m_isCancelled = true; };
  Label1.setCaption(u"数据正在导出，请稍等....."_s);
}

void frmExport::Export2Excel(const Grid& grid)
{
  desk().setBusy(true);
  desk().showDuring(*this, [&] { copy(grid); });
  desk().setBusy(false);
}

void frmExport::copy(const Grid& grid)
{
  const std::unique_ptr<Workbook> workbook = orThrow(m_session.spreadsheet.create());
  const QString sheet = orThrow(workbook->sheetNames()).first();
  orThrow(workbook->setSizes(sheet, grid.rows(), Grid::RowHeight, widthsOf(grid)));
  for (int row = 0; row < grid.rows(); row += RowsInBlock) {
    const int end = std::min(row + RowsInBlock, grid.rows());
    const QList<QStringList> block = shownTexts(grid, row, end);
    orThrow(workbook->enterTexts(sheet, row + 1, 1, block));
    orThrow(workbook->showWhole(sheet, brokenCells(block, row + 1)));
    prg.setValue(100 * end / grid.rows());
    desk().breathe();
    if (m_isCancelled)
      return;
  }
  orThrow(workbook->finish(sheet, Workbook::Finish::HandOver, {}));
}
