#include "settlement/frmGouDui.h"

#include "platform/NumberText.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "settlement/MatchingLines.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr ListColumn Columns[MatchingLines::ColumnCount] = {
    {u"", 300},          {u"单据编号", 1500}, {u"单据类型", 1500}, {u"录单日期", 1500}, {u"单位编号", 1000},
    {u"单位名称", 2000}, {u"发票类型", 1000}, {u"次序", 500},      {u"商品编号", 1000}, {u"商品名称", 2000},
    {u"规格", 1000},     {u"属性", 1500},     {u"单位", 1000},     {u"数量", 1000},     {u"单价", 1000},
    {u"金额", 1500},     {u"折扣", 800},      {u"折后单价", 1000}, {u"折后金额", 1000}, {u"税率(%)", 800},
    {u"税额", 1000},     {u"含税单价", 1000}, {u"含税金额", 1500}, {u"备注", 1000},     {u"开票勾对", 1000},
};

constexpr ListTraits::Tool Tools[] = {
    {"ToolOldBill", u"原单"}, {"ToolOK", u"调入"}, {"ToolFiltre", u"过滤"}, {"ToolPrint", u"打印"}, {"ToolExit", u"退出"},
};

constexpr ListTraits Traits{"frmGouDui",
                            u"开票勾对",
                            u"查询",
                            u"注意：如果任何条件均不设置按查询则表示查询所有数据！单击票据勾对列进行勾对或取消勾对。",
                            u"YYYY-MMM-DD",
                            Tools,
                            ListTraits::Lists::GoodsLines};

constexpr QStringView ForeignOrders[] = {u"购买订单调入查询", u"销售订单调入查询", u"购买订单查询", u"销售订单查询"};

const QString Tick = u"√"_s;
// The suite counts lines in sixteen bits.
constexpr int MostLines = std::numeric_limits<qint16>::max();

} // namespace

frmGouDui::frmGouDui(Session& ofSession) : GoodsLineForm(ofSession, Traits, Columns, ForeignOrders)
{
  MSH.onClick = [this] {
    if (MSH.col() == MatchingLines::GouDui)
      toggleTick();
  };
  MSH.onKeyDown = [this](const Key& key) {
    if (key.text == u" " && !Trim(MSH.text(MSH.row(), MatchingLines::Num)).isEmpty() && !MSH.isTotals(MSH.row()))
      toggleTick();
  };
}

Statement frmGouDui::statement(const Tables& tables) const
{
  const SqlName& H = tables.header;
  const SqlName& L = tables.line;
  return {u"  select {}.Code as BillCode  ,{}.BillType as BillType  ,{}.Datee as BillDatee  ,{}.UnitCode as UnitCode "
          u" ,{}.UnitName as UnitName  ,{}.InvoiceType as InvoiceType  ,{}.* {} order by {}.UnitCode, {}.Datee,{}.Code,{}.Num ",
          H,
          H,
          H,
          H,
          H,
          H,
          L,
          tables.fromWhere,
          H,
          H,
          H,
          L};
}

void frmGouDui::showRows(Recordset& rs)
{
  const auto lines = std::make_shared<MatchingLines>(session, rs.takeRows());
  const int shown = qMin(lines->count(), MostLines);
  MSH.setRowsOnDemand(1, shown, [lines](int line, int column) { return lines->text(line, column); });
  MSH.addRow();
  if (shown < lines->count())
    throw RunTimeError(RunTimeError::Overflow, u"溢出"_s);
  // The amounts of the totals row stay empty.
  headTotals();
  for (int col = 3; col <= 10; ++col)
    MSH.setText(MSH.rows() - 1, col, u"----"_s);
}

void frmGouDui::toggleTick()
{
  const int row = MSH.row();
  if (!FrameCondition.isEnabled() || row <= 0)
    return;
  const bool wasTicked = Trim(MSH.text(row, MatchingLines::GouDui)) == Tick;
  if (wasTicked && !desk().confirm(u"确定取消吗？"_s, Desk::Icon::Question))
    return;
  MSH.setText(row, MatchingLines::GouDui, wasTicked ? QString() : Tick);
  const auto number = qint64(NumberText::numericPrefix(MSH.text(row, MatchingLines::Num)));
  Execute(session, {u"update {} set GouDui={}  where BillCode='{}' and Num={} ", SqlName(lineTable()), SqlNumber(wasTicked ? 0 : 1),
                    billCodeOf(row), SqlNumber(number)});
}

// Only the first line of a bill shows its code.
QString frmGouDui::billCodeOf(int row) const
{
  while (row > 0 && Trim(MSH.text(row, MatchingLines::BillCode)).isEmpty())
    --row;
  return Trim(MSH.text(row, MatchingLines::BillCode));
}
