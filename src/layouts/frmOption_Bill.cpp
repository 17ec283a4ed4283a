#include "layouts/frmOption_Bill.h"

#include "layouts/GridLayout.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "screen/FilterKeyPress.h"
#include "screen/Grid.h"
#include "session/Session.h"

#include <QScopedValueRollback>

#include <cmath>

namespace {

// Twips to a millimetre. To show and to set differ: a width that is shown and set again drifts a little.
constexpr double TwipsToShow = 56.7;
constexpr double TwipsToSet = 56.6928;
constexpr int WidthOfShownColumn = 1500;

QString millimetres(int twips)
{
  return NumberText::ofDouble(std::floor(twips / TwipsToShow * 100) / 100);
}

} // namespace

frmOption_Bill::frmOption_Bill(Session& ofSession) : Form(ofSession.desk, QStringLiteral("frmOption_Bill")), session(ofSession)
{
  setCaption(QStringLiteral("界面显示格式设置"));
  LabHead.setCaption(QStringLiteral("表格列名"));
  LabElseName.setCaption(QStringLiteral("名称格式化为："));
  ChShowCol.setCaption(QStringLiteral("显示列"));
  LabColWidth.setCaption(QStringLiteral("列宽"));
  FrameAlign.setCaption(QStringLiteral("对齐方式"));
  OptionMSHHeadDefault.setCaption(QStringLiteral("默认对齐"));
  OptionMSHHeadLeft.setCaption(QStringLiteral("左对齐"));
  OptionMSHHeadCenter.setCaption(QStringLiteral("居中对齐"));
  OptionMSHHeadRight.setCaption(QStringLiteral("右对齐"));
  CmdOk.setCaption(QStringLiteral("保   存"));
  CmdExit.setCaption(QStringLiteral("退   出"));
  wire();
}

void frmOption_Bill::wire()
{
  ListMSHHead.onClick = [this] { ListMSHHead_Click(); };
  TxtMSHElseName.onChange = [this] { TxtMSHElseName_Change(); };
  ChShowCol.onClick = [this] { ChShowCol_Click(); };
  TxtMSHColWidth.onChange = [this] { TxtMSHColWidth_Change(); };
  TxtMSHColWidth.onKey = [this](const Key& key) { return !ModFuntion::FilterKeyPress(desk(), key, ".0123456789", true); };
  OptionMSHHeadDefault.onClick = [this] { align(Grid::AlignDefault); };
  OptionMSHHeadLeft.onClick = [this] { align(Grid::AlignLeft); };
  OptionMSHHeadCenter.onClick = [this] { align(Grid::AlignCenter); };
  OptionMSHHeadRight.onClick = [this] { align(Grid::AlignRight); };
  CmdOk.onClick = [this] { CmdOk_Click(); };
  CmdExit.onClick = [this] { close(); };
  closeOnEscape();
}

void frmOption_Bill::LoadMSHHead(Grid& ofGrid, const QString& layoutName)
{
  grid = &ofGrid;
  name = Trim(layoutName);
  QStringList heads;
  for (int col = 0; col < grid->cols(); ++col)
    heads.append(grid->text(0, col));
  ListMSHHead.setItems(heads);
}

QList<int> frmOption_Bill::chosenColumns() const
{
  QList<int> columns;
  for (int col = 0; ListMSHHead.index() >= 0 && col < grid->cols(); ++col)
    if (Trim(grid->text(0, col)) == Trim(ListMSHHead.text()))
      columns.append(col);
  return columns;
}

void frmOption_Bill::ListMSHHead_Click()
{
  for (const int col : chosenColumns())
    showColumn(col);
}

void frmOption_Bill::showColumn(int col)
{
  const QScopedValueRollback showing(isShowing, true);
  const int width = grid->colWidth(col);
  const int alignment = grid->colAlignment(col);
  ChShowCol.setChecked(width != 0);
  OptionMSHHeadLeft.setChecked(alignment >= 0 && alignment <= 2);
  OptionMSHHeadCenter.setChecked(alignment >= 3 && alignment <= 5);
  OptionMSHHeadRight.setChecked(alignment >= 6 && alignment <= 8);
  OptionMSHHeadDefault.setChecked(alignment == Grid::AlignDefault);
  TxtMSHColWidth.setText(millimetres(width));
  TxtMSHElseName.setText(ListMSHHead.text());
}

void frmOption_Bill::ChShowCol_Click()
{
  const int width = ChShowCol.isChecked() ? WidthOfShownColumn : 0;
  for (const int col : chosenColumns()) {
    grid->setColWidth(col, width);
    TxtMSHColWidth.setText(millimetres(width));
  }
}

void frmOption_Bill::TxtMSHColWidth_Change()
{
  if (isShowing)
    return;
  const double width = NumberText::numericPrefix(TxtMSHColWidth.text()) * TwipsToSet;
  for (const int col : chosenColumns())
    grid->setColWidth(col, int(std::nearbyint(qMin(width, 1e6))));
}

void frmOption_Bill::TxtMSHElseName_Change()
{
  if (isShowing || ListMSHHead.index() < 0)
    return;
  grid->setText(0, ListMSHHead.index(), TxtMSHElseName.text());
  ListMSHHead.setItem(ListMSHHead.index(), TxtMSHElseName.text());
}

void frmOption_Bill::align(int alignment)
{
  for (const int col : chosenColumns())
    grid->setColAlignment(col, alignment);
}

void frmOption_Bill::CmdOk_Click()
{
  if (name.isEmpty()) {
    desk().inform(QStringLiteral("被设置的界面名称不能确定，保存失败！请退出后重新设置。"));
    return;
  }
  GridLayout::SaveGridLayout(session, *grid, name);
  close();
}
