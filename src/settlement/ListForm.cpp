#include "settlement/ListForm.h"

#include "pickers/CodePicker.h"
#include "platform/DateText.h"
#include "platform/Trim.h"
#include "printing/PrintHandOff.h"
#include "printing/frmExport.h"
#include "session/ModuleADO.h"

using namespace Qt::StringLiterals;

namespace {

const QString DateCharacters = u".0123456789-"_s;

} // namespace

ListForm::ListForm(Session& ofSession, const ListTraits& traits)
    : Form(ofSession.desk, traits.form), session(ofSession), LabTabName(this, "LabTabName"), FrameCondition(this, "FrameCondition"),
      writeOffs(traits.lists == ListTraits::Lists::WriteOffs ? std::make_unique<WriteOffConditions>(FrameCondition) : nullptr),
      goodsLines(traits.lists == ListTraits::Lists::GoodsLines ? std::make_unique<GoodsLineConditions>(FrameCondition) : nullptr),
      TxtDateeFrom(&FrameCondition, "TxtDateeFrom", DateCharacters), TxtDateeTo(&FrameCondition, "TxtDateeTo", DateCharacters),
      TxtBillCode(&FrameCondition, "TxtBillCode"), TxtUnitCode(&FrameCondition, "TxtUnitCode"),
      ImgUnitCode(&FrameCondition, "ImgUnitCode", [this] { pickPartner(PartnerBox::Code); }), TxtUnitName(&FrameCondition, "TxtUnitName"),
      ImgUnitName(&FrameCondition, "ImgUnitName", [this] { pickPartner(PartnerBox::Name); }), CmdQuery(&FrameCondition, "CmdQuery"),
      Label16(&FrameCondition, "Label16"), MSH(this, "MSH"), Toolbar1(this, "Toolbar1"), MFile(this, "MFile"), MPrint(this, "MPrint"),
      m_traits(traits)
{
  setCaption(traits.caption.toString());
  LabTabName.setCaption(traits.caption.toString());
  FrameCondition.setCaption(u"条件设置"_s);
  CmdQuery.setCaption(traits.queryCaption.toString());
  CmdQuery.onClick = [this] { CmdQuery_Click(); };
  Label16.setCaption(traits.hint.toString());
  MSH.setRowList(true);
  for (const ListTraits::Tool& tool : traits.tools)
    (new ToolButton(&Toolbar1, tool.name))->setCaption(tool.caption.toString());
  buildFileMenu();
  MPrint.setCaption(u"打印(&T)"_s);
  addPrintItem(MPrint, "PDirect", u"直接打印"_s);
  addPrintItem(MPrint, "PPreview", u"打印预览"_s);
  onTool("ToolPrint", [this] { MPrint.popUp(); });
  onTool("ToolExit", [this] { close(); });
}

void ListForm::buildFileMenu()
{
  MFile.setCaption(u"文件(&F)"_s);
  addItem(MFile, "FExcel", u"导出至Excel表"_s, [this] { frmExport(session).Export2Excel(MSH); });
  addPrintItem(MFile, "FPrintSet", u"打印设置"_s);
  addItem(MFile, "FMSHFormat", u"界面列表格式设置"_s, [this] { GridLayout::FMSHFormat_Click(session, MSH, LabTabName.caption()); });
  addItem(MFile, "FDeleteMSHFormat", u"删除界面列表格式"_s, [this] { FDeleteMSHFormat_Click(); });
  addItem(MFile, "FExit", u"退出"_s, [this] { close(); });
}

void ListForm::addItem(Menu& menu, const char* name, const QString& caption, std::function<void()> press)
{
  MenuItem* const item = new MenuItem(&menu, name);
  item->setCaption(caption);
  item->onClick = std::move(press);
}

void ListForm::addPrintItem(Menu& menu, const char* name, const QString& operation)
{
  addItem(menu, name, operation, [this, operation] { PrintGrid(operation); });
}

void ListForm::pickPartner(PartnerBox box)
{
  if (!offersPartners())
    return;
  const Statement partners(u"select Code,Name from TabClient order by code");
  if (const auto picked = CodePicker::pick(session, {partners, u"TabClient"_s, u"选择往来单位"_s, true}))
    takePartner(*picked, box);
}

void ListForm::CmdQuery_Click()
{
  const Statement list = BuildQuerySql();
  if (list.isEmpty())
    desk().inform(u"请设置查询条件！"_s);
  else
    FillMSH(list);
}

void ListForm::SetGridHead()
{
  if (columns().empty())
    return;
  GridLayout::apply(session, MSH, LabTabName.caption(), columns());
}

void ListForm::emptyGrid()
{
  MSH.setRows(2);
  MSH.clear();
  MSH.setTotalsRow(false);
  MSH.setCurrent(1, 1);
}

void ListForm::FDeleteMSHFormat_Click()
{
  if (GridLayout::FDeleteMSHFormat_Click(session, LabTabName.caption()))
    SetGridHead();
}

void ListForm::PrintGrid(const QString& operation)
{
  PrintHandOff(session, {.title = Trim(LabTabName.caption()), .head = printHead(), .printed = printedLines(MSH)}, operation);
}

bool ListForm::datesAreDates()
{
  return isEmptyOrDate(TxtDateeFrom, u"单据日期从"_s) && isEmptyOrDate(TxtDateeTo, u"单据日期至"_s);
}

bool ListForm::isEmptyOrDate(const TextBox& box, const QString& label)
{
  if (Trim(box.text()).isEmpty() || DateText::parse(Trim(box.text())))
    return true;
  desk().inform(label + u"不是日期型格式("_s + m_traits.dateFormat.toString() + u"),请修改！"_s);
  return false;
}

Statement ListForm::dateOf(const TextBox& box) const
{
  return SqlDialect::date(session, *DateText::parse(Trim(box.text())));
}

QString ListForm::textUnder(const QString& heading) const
{
  for (int col = 1; col < MSH.cols(); ++col)
    if (Trim(MSH.text(0, col)) == heading)
      return Trim(MSH.text(MSH.row(), col));
  return {};
}

bool ListForm::isOnRow() const
{
  return MSH.row() > 0 && !Trim(MSH.text(MSH.row(), 1)).isEmpty();
}

void ListForm::tellNoData()
{
  desk().inform(u"没有满足条件的数据！"_s);
}

void ListForm::onUnload()
{
  session.params.OperateType.clear();
  CloseConnection(session);
}
