#include "layouts/frmOption_Bill.h"

#include "layouts/GridLayout.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "screen/FilterKeyPress.h"
#include "screen/Grid.h"
#include "session/Session.h"

#include <QScopedValueRollback>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Twips to a millimetre. The factors for showing and setting differ: a width that is shown and set again drifts a
// little.
constexpr double TwipsToShow = 56.7;
constexpr double TwipsToSet = 56.6928;
constexpr int WidthOfShownColumn = 1500;

QString millimetres(int twips)
{
  return NumberText::ofDouble(std::floor(twips / TwipsToShow * 100) / 100);
}

} // namespace

frmOption_Bill::frmOption_Bill(Session& ofSession) : Form(ofSession.desk, "frmOption_Bill"), m_session(ofSession)
{
  setCaption(u"界面显示格式设置"_s);
  LabHead.setCaption(u"表格列名"_s);
  LabElseName.setCaption(u"名称格式化为："_s);
  ChShowCol.setCaption(u"显示列"_s);
  LabColWidth.setCaption(u"列宽"_s);
  FrameAlign.setCaption(u"对齐方式"_s);
  OptionMSHHeadDefault.setCaption(u"默认对齐"_s);
  OptionMSHHeadLeft.setCaption(u"左对齐"_s);
  OptionMSHHeadCenter.setCaption(u"居中对齐"_s);
  OptionMSHHeadRight.setCaption(u"右对齐"_s);
  CmdOk.setCaption(u"保   存"_s);
  CmdExit.setCaption(u"退   出"_s);
  wire();
}

void frmOption_Bill::wire()
{
  ListMSHHead.onClick = [this] { ListMSHHead_Click(); };
  TxtMSHElseName.onChange = [this] { TxtMSHElseName_Change(); };
  ChShowCol.onClick = [this] { ChShowCol_Click(); };
  TxtMSHColWidth.onChange = [this] { TxtMSHColWidth_Change(); };
  TxtMSHColWidth.onKey = [this](const Key& key) { return !ModFuntion::FilterKeyPress(desk(), key, u".0123456789"_s, true); };
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
  m_grid = &ofGrid;
  m_name = Trim(layoutName);
  QStringList heads;
  for (int col = 0; col < m_grid->cols(); ++col)
    heads.append(m_grid->text(0, col));
  ListMSHHead.setItems(heads);
}

QList<int> frmOption_Bill::chosenColumns() const
{
  QList<int> columns;
  for (int col = 0; ListMSHHead.index() >= 0 && col < m_grid->cols(); ++col)
    if (Trim(m_grid->text(0, col)) == Trim(ListMSHHead.text()))
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
  const QScopedValueRollback showing(m_isShowing, true);
  const int width = m_grid->colWidth(col);
  const int alignment = m_grid->colAlignment(col);
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
    m_grid->setColWidth(col, width);
    TxtMSHColWidth.setText(millimetres(width));
  }
}

void frmOption_Bill::TxtMSHColWidth_Change()
{
  if (m_isShowing)
    return;
  const double width = NumberText::numericPrefix(TxtMSHColWidth.text()) * TwipsToSet;
  for (const int col : chosenColumns())
    m_grid->setColWidth(col, int(std::nearbyint(qMin(width, 1e6))));
}

void frmOption_Bill::TxtMSHElseName_Change()
{
  if (m_isShowing || ListMSHHead.index() < 0)
    return;
  m_grid->setText(0, ListMSHHead.index(), TxtMSHElseName.text());
  ListMSHHead.setItem(ListMSHHead.index(), TxtMSHElseName.text());
}

void frmOption_Bill::align(int alignment)
{
  for (const int col : chosenColumns())
    m_grid->setColAlignment(col, alignment);
}

void frmOption_Bill::CmdOk_Click()
{
  if (m_name.isEmpty()) {
    desk().inform(u"被设置的界面名称不能确定，保存失败！请退出后重新设置。"_s);
    return;
  }
  GridLayout::SaveGridLayout(m_session, *m_grid, m_name);
  close();
}
