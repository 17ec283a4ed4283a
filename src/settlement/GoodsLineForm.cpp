#include "settlement/GoodsLineForm.h"

#include "ledger/BillCatalogue.h"
#include "pickers/CodePicker.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "startup/Launcher.h"

namespace {

constexpr char Unmatched[] = "未勾对数据";
constexpr char Matched[] = "已勾对数据";

// What the programs of the goods bills call the bills of a kind.
struct Kind {
  const char* billType;
  const char* name;
};
constexpr Kind Kinds[] = {
    {"购买入库单", "购买入库"}, {"采购入库单", "采购入库"}, {"其他入库单", "其他入库"},
    {"销售出库单", "销售出库"}, {"其他出库单", "其他出库"},
};

} // namespace

GoodsLineForm::GoodsLineForm(Session& ofSession, const ListTraits& traits, std::span<const ListColumn> columns,
                             std::span<const char* const> foreignOrders)
    : ListForm(ofSession, traits), m_columns(columns), m_foreignOrders(foreignOrders)
{
  buildHead();
  CombBillType = addDropDown("CombBillType", {"采购入库单", "销售出库单", "其他入库单", "其他出库单"});
  CombShowType = addDropDown("CombShowType", {Unmatched, Matched, "全部数据"});
  Container* const invoices = add<Container>(FrameCondition, "Frame1", "发票类型");
  ChZZSFP = add<CheckBox>(invoices, "ChZZSFP", "增值税发票");
  ChPTFP = add<CheckBox>(invoices, "ChPTFP", "普通发票");
  ChSJ = add<CheckBox>(invoices, "ChSJ", "收据");
  for (CheckBox* const box : {ChZZSFP, ChPTFP, ChSJ})
    box->setChecked(true);
  buildConditions();
  buildList();
  onTool("ToolOldBill", [this] { ToolOldBill_Click(); });
}

QString GoodsLineForm::headerTable() const
{
  const QString table = ModFuntion::GetBillHeaderTable(CombBillType->text());
  return table.isEmpty() ? "TabOutBill" : table;
}

QString GoodsLineForm::lineTable() const
{
  const QString table = ModFuntion::GetBillLineTable(CombBillType->text());
  return table.isEmpty() ? "TabOutBillInf" : table;
}

Statement GoodsLineForm::BuildQuerySql()
{
  if (invoiceKinds().isEmpty()) {
    desk().inform("请选择发票类型！");
    return {};
  }
  if (!datesAreDates())
    return {};
  const SqlName header(headerTable());
  const SqlName line(lineTable());
  return statement({header,
                    line,
                    {u" from  {},{}  where  {}.Code={}.BillCode and  {}.State='正常' and  {}", header, line, header, line, header,
                     Statement::joined(conditions(), u" and ")}});
}

QList<Statement> GoodsLineForm::invoiceKinds() const
{
  QList<Statement> kinds;
  for (const CheckBox* const box : {ChZZSFP, ChPTFP, ChSJ})
    if (box->isChecked())
      kinds.append({u"{}.InvoiceType='{}' ", SqlName(headerTable()), box->caption()});
  return kinds;
}

QList<Statement> GoodsLineForm::conditions() const
{
  const SqlName header(headerTable());
  const SqlName line(lineTable());
  QList<Statement> pieces;
  if (const QString code = Trim(TxtBillCode->text()); !code.isEmpty())
    pieces.append({u"{}.Code='{}' ", header, code});
  if (const QString code = Trim(TxtUnitCode->text()); !code.isEmpty())
    pieces.append({u"{}.UnitCode like '{}%' ", header, code});
  if (const QString name = Trim(TxtUnitName->text()); !name.isEmpty())
    pieces.append({u"{}.UnitName like '{}%' ", header, name});
  if (!Trim(TxtDateeFrom->text()).isEmpty())
    pieces.append({u"{}.Datee>={}", header, dateOf(*TxtDateeFrom)});
  if (!Trim(TxtDateeTo->text()).isEmpty())
    pieces.append({u"{}.Datee<={}", header, dateOf(*TxtDateeTo)});
  pieces.append({u" ( {} ) ", Statement::joined(invoiceKinds(), u"  or ")});
  if (CombShowType->text() == Unmatched)
    pieces.append({u"{}.GouDui<>1 ", line});
  else if (CombShowType->text() == Matched)
    pieces.append({u"{}.GouDui=1 ", line});
  return pieces;
}

std::span<const ListColumn> GoodsLineForm::columns() const
{
  for (const char* const order : m_foreignOrders)
    if (session.params.OperateType == order)
      return {};
  return m_columns;
}

void GoodsLineForm::FillMSH(const Statement& list)
{
  if (columns().empty())
    return;
  desk().setBusy(true);
  emptyGrid();
  SetGridHead();
  Recordset rs = OpenRecordset(session, list);
  if (isNothing(rs))
    tellNoData();
  else
    showRows(rs);
  desk().setBusy(false);
}

QStringList GoodsLineForm::printHead() const
{
  QString invoices = "发票类型：";
  for (const CheckBox* const box : {ChZZSFP, ChPTFP, ChSJ})
    if (box->isChecked())
      invoices += box->caption() + "  ";
  return {invoices, "票据类型：" + CombBillType->text(), "单据日期从：" + TxtDateeFrom->text() + "至" + TxtDateeTo->text(),
          "显示数据类型：" + CombShowType->text()};
}

void GoodsLineForm::takePartner(const PickedRecord& picked, PartnerBox box)
{
  if (box == PartnerBox::Code)
    TxtUnitCode->setText(picked.code);
  else
    TxtUnitName->setText(picked.name);
}

void GoodsLineForm::ToolOldBill_Click()
{
  if (!isOnRow())
    return;
  for (const Kind& kind : Kinds)
    if (CombBillType->text() == kind.billType)
      Mod_ZORVEKMain::RunSiblingProgram(session, QString(kind.name) + "原单查看",
                                        {session.params.OperateType, kind.name, headerTable(), textUnder("单据编号")});
}

void GoodsLineForm::headTotals()
{
  MSH->setText(MSH->rows() - 1, 2, "合计");
  MSH->setTotalsRow(true);
}
