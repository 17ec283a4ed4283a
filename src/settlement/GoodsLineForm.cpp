#include "settlement/GoodsLineForm.h"

#include "ledger/BillCatalogue.h"
#include "pickers/CodePicker.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "startup/Launcher.h"

using namespace Qt::StringLiterals;

namespace {

// What the programs of the goods bills call the bills of a kind.
struct Kind {
  QStringView billType;
  QStringView name;
};
constexpr Kind Kinds[] = {
    {u"购买入库单", u"购买入库"}, {u"采购入库单", u"采购入库"}, {u"其他入库单", u"其他入库"},
    {u"销售出库单", u"销售出库"}, {u"其他出库单", u"其他出库"},
};

} // namespace

GoodsLineForm::GoodsLineForm(Session& ofSession, const ListTraits& traits, std::span<const ListColumn> columns,
                             std::span<const QStringView> foreignOrders)
    : ListForm(ofSession, traits), m_columns(columns), m_foreignOrders(foreignOrders)
{
  onTool("ToolOldBill", [this] { ToolOldBill_Click(); });
}

QString GoodsLineForm::headerTable() const
{
  const QString table = ModFuntion::GetBillHeaderTable(goodsLines->CombBillType.text());
  return table.isEmpty() ? u"TabOutBill"_s : table;
}

QString GoodsLineForm::lineTable() const
{
  const QString table = ModFuntion::GetBillLineTable(goodsLines->CombBillType.text());
  return table.isEmpty() ? u"TabOutBillInf"_s : table;
}

Statement GoodsLineForm::BuildQuerySql()
{
  if (invoiceKinds().isEmpty()) {
    desk().inform(u"请选择发票类型！"_s);
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
  for (const CheckBox* const box : goodsLines->invoices())
    if (box->isChecked())
      kinds.append({u"{}.InvoiceType='{}' ", SqlName(headerTable()), box->caption()});
  return kinds;
}

QList<Statement> GoodsLineForm::conditions() const
{
  const SqlName header(headerTable());
  const SqlName line(lineTable());
  QList<Statement> pieces;
  if (const QString code = Trim(TxtBillCode.text()); !code.isEmpty())
    pieces.append({u"{}.Code='{}' ", header, code});
  if (const QString code = Trim(TxtUnitCode.text()); !code.isEmpty())
    pieces.append({u"{}.UnitCode like '{}%' ", header, code});
  if (const QString name = Trim(TxtUnitName.text()); !name.isEmpty())
    pieces.append({u"{}.UnitName like '{}%' ", header, name});
  if (!Trim(TxtDateeFrom.text()).isEmpty())
    pieces.append({u"{}.Datee>={}", header, dateOf(TxtDateeFrom)});
  if (!Trim(TxtDateeTo.text()).isEmpty())
    pieces.append({u"{}.Datee<={}", header, dateOf(TxtDateeTo)});
  pieces.append({u" ( {} ) ", Statement::joined(invoiceKinds(), u"  or ")});
  if (goodsLines->CombShowType.text() == ConditionTexts::Unmatched)
    pieces.append({u"{}.GouDui<>1 ", line});
  else if (goodsLines->CombShowType.text() == ConditionTexts::Matched)
    pieces.append({u"{}.GouDui=1 ", line});
  return pieces;
}

std::span<const ListColumn> GoodsLineForm::columns() const
{
  for (const QStringView order : m_foreignOrders)
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
  QString invoices = u"发票类型："_s;
  for (const CheckBox* const box : goodsLines->invoices())
    if (box->isChecked())
      invoices += box->caption() + u"  "_s;
  return {invoices, u"票据类型："_s + goodsLines->CombBillType.text(), u"单据日期从："_s + TxtDateeFrom.text() + u'至' + TxtDateeTo.text(),
          u"显示数据类型："_s + goodsLines->CombShowType.text()};
}

void GoodsLineForm::takePartner(const PickedRecord& picked, PartnerBox box)
{
  if (box == PartnerBox::Code)
    TxtUnitCode.setText(picked.code);
  else
    TxtUnitName.setText(picked.name);
}

void GoodsLineForm::ToolOldBill_Click()
{
  if (!isOnRow())
    return;
  for (const Kind& kind : Kinds)
    if (goodsLines->CombBillType.text() == kind.billType)
      Mod_ZORVEKMain::RunSiblingProgram(session, kind.name.toString() + u"原单查看"_s,
                                        {session.params.OperateType, kind.name.toString(), headerTable(), textUnder(u"单据编号"_s)});
}

void GoodsLineForm::headTotals()
{
  MSH.setText(MSH.rows() - 1, 2, u"合计"_s);
  MSH.setTotalsRow(true);
}
