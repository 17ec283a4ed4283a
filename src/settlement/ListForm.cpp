#include "settlement/ListForm.h"

#include "pickers/CodePicker.h"
#include "platform/DateText.h"
#include "platform/Trim.h"
#include "printing/PrintHandOff.h"
#include "printing/frmExport.h"
#include "session/ModuleADO.h"

using namespace Qt::StringLiterals;

ListForm::ListForm(Session& ofSession, const ListTraits& traits) : Form(ofSession.desk, traits.form), session(ofSession), m_traits(traits)
{
  setCaption(traits.caption.toString());
}

void ListForm::buildHead()
{
  LabTabName = add<Label>(this, "LabTabName", m_traits.caption.toString());
  FrameCondition = add<Container>(this, "FrameCondition", u"条件设置"_s);
}

void ListForm::buildConditions()
{
  TxtDateeFrom = new EntryBox(FrameCondition, "TxtDateeFrom", u".0123456789-"_s);
  TxtDateeTo = new EntryBox(FrameCondition, "TxtDateeTo", u".0123456789-"_s);
  TxtBillCode = new EntryBox(FrameCondition, "TxtBillCode");
  TxtUnitCode = new EntryBox(FrameCondition, "TxtUnitCode");
  ImgUnitCode = addPartnerButton("ImgUnitCode", PartnerBox::Code);
  TxtUnitName = new EntryBox(FrameCondition, "TxtUnitName");
  ImgUnitName = addPartnerButton("ImgUnitName", PartnerBox::Name);
  add<Button>(FrameCondition, "CmdQuery", m_traits.queryCaption.toString())->onClick = [this] { CmdQuery_Click(); };
  add<Label>(FrameCondition, "Label16", m_traits.hint.toString());
}

void ListForm::buildList()
{
  MSH = add<Grid>(this, "MSH");
  MSH->setRowList(true);
  Container* const toolbar = add<Container>(this, "Toolbar1");
  for (const ListTraits::Tool& tool : m_traits.tools)
    add<ToolButton>(toolbar, tool.name, tool.caption.toString());
  buildMenus();
}

void ListForm::buildMenus()
{
  Menu* const file = add<Menu>(this, "MFile", u"文件(&F)"_s);
  add<MenuItem>(file, "FExcel", u"导出至Excel表"_s)->onClick = [this] { frmExport(session).Export2Excel(*MSH); };
  addPrintItem(file, "FPrintSet", u"打印设置"_s);
  add<MenuItem>(file, "FMSHFormat", u"界面列表格式设置"_s)->onClick = [this] {
    GridLayout::FMSHFormat_Click(session, *MSH, LabTabName->caption());
  };
  add<MenuItem>(file, "FDeleteMSHFormat", u"删除界面列表格式"_s)->onClick = [this] { FDeleteMSHFormat_Click(); };
  add<MenuItem>(file, "FExit", u"退出"_s)->onClick = [this] { close(); };
  Menu* const print = add<Menu>(this, "MPrint", u"打印(&T)"_s);
  addPrintItem(print, "PDirect", u"直接打印"_s);
  addPrintItem(print, "PPreview", u"打印预览"_s);
  onTool("ToolPrint", [print] { print->popUp(); });
  onTool("ToolExit", [this] { close(); });
}

void ListForm::addPrintItem(Menu* menu, const char* name, const QString& operation)
{
  add<MenuItem>(menu, name, operation)->onClick = [this, operation] { PrintGrid(operation); };
}

ComboBox* ListForm::addDropDown(const char* name, const QStringList& items)
{
  ComboBox* const box = add<ComboBox>(FrameCondition, name);
  box->setItems(items);
  box->setIndex(0);
  return box;
}

ImageButton* ListForm::addPartnerButton(const char* name, PartnerBox box)
{
  return new PickButton(FrameCondition, name, [this, box] {
    if (!offersPartners())
      return;
    const Statement partners(u"select Code,Name from TabClient order by code");
    if (const auto picked = CodePicker::pick(session, {partners, u"TabClient"_s, u"选择往来单位"_s, true}))
      takePartner(*picked, box);
  });
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
  GridLayout::apply(session, *MSH, LabTabName->caption(), columns());
}

void ListForm::emptyGrid()
{
  MSH->setRows(2);
  MSH->clear();
  MSH->setTotalsRow(false);
  MSH->setCurrent(1, 1);
}

void ListForm::FDeleteMSHFormat_Click()
{
  if (GridLayout::FDeleteMSHFormat_Click(session, LabTabName->caption()))
    SetGridHead();
}

void ListForm::PrintGrid(const QString& operation)
{
  PrintHandOff(session, {.title = Trim(LabTabName->caption()), .head = printHead(), .printed = printedLines(*MSH)}, operation);
}

bool ListForm::datesAreDates()
{
  return isBlankOrDate(*TxtDateeFrom, u"单据日期从"_s) && isBlankOrDate(*TxtDateeTo, u"单据日期至"_s);
}

bool ListForm::isBlankOrDate(const TextBox& box, const QString& label)
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
  for (int col = 1; col < MSH->cols(); ++col)
    if (Trim(MSH->text(0, col)) == heading)
      return Trim(MSH->text(MSH->row(), col));
  return {};
}

bool ListForm::isOnRow() const
{
  return MSH->row() > 0 && !Trim(MSH->text(MSH->row(), 1)).isEmpty();
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
