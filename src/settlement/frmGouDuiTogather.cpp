#include "settlement/frmGouDuiTogather.h"

#include "ledger/Money.h"
#include "platform/Trim.h"

using namespace Qt::StringLiterals;

namespace {

constexpr ListColumn Columns[] = {
    {u"", 300}, {u"单位编号", 1500}, {u"单位名称", 2000}, {u"金额", 2000}, {u"折后金额", 2000}, {u"税额", 2000}, {u"含税金额", 2000},
};
constexpr int FirstSum = 3;
constexpr const char* Sums[] = {"SumMoneyy", "SumMoneyyDiscount", "SumTax", "SumMoneyyTax"};

constexpr ListTraits::Tool Tools[] = {
    {"ToolOldBill", u"原单"}, {"ToolInf", u"明细"},   {"ToolOK", u"调入"},
    {"ToolFiltre", u"过滤"},  {"ToolPrint", u"打印"}, {"ToolExit", u"退出"},
};

constexpr ListTraits Traits{"frmGouDuiTogather",
                            u"开票金额汇总表",
                            u"汇总",
                            u"注意：如果任何条件均不设置按查询则表示查询所有数据！单击票据勾对列进行勾对或取消勾对。",
                            u"YYYY-MMM-DD",
                            Tools,
                            ListTraits::Lists::GoodsLines};

constexpr QStringView ForeignOrders[] = {u"购买订单调入查询", u"销售订单调入查询", u"购买订单查询",
                                         u"销售订单查询",     u"采购订单调入查询", u"采购订单查询"};

const QString DetailTitle = u"开票勾对明细显示"_s;

} // namespace

frmGouDuiTogather::frmGouDuiTogather(Session& ofSession) : GoodsLineForm(ofSession, Traits, Columns, ForeignOrders)
{
  onTool("ToolInf", [this] { ToolInf_Click(); });
  MSH.onDoubleClick = [this] {
    if (find("ToolInf")->isVisible())
      ToolInf_Click();
  };
}

Statement frmGouDuiTogather::statement(const Tables& tables) const
{
  const SqlName& H = tables.header;
  const SqlName& L = tables.line;
  return {u"  select {}.UnitCode as UnitCode  ,{}.UnitName as UnitName  ,sum({}.Moneyy) as SumMoneyy "
          u" ,sum({}.Moneyy_Discount) as SumMoneyyDiscount  ,sum({}.Tax) as SumTax  ,sum({}.Moneyy_Tax) as sumMoneyyTax {}"
          u" group by {}.UnitCode,{}.UnitName   order by {}.UnitCode ",
          H,
          H,
          L,
          L,
          L,
          L,
          tables.fromWhere,
          H,
          H,
          H};
}

// As in the suite, a null amount in the first row counts as an empty result.
bool frmGouDuiTogather::isNothing(const Recordset& rs) const
{
  return rs.eof() || rs.field("SumMoneyy").isNull();
}

void frmGouDuiTogather::showRows(Recordset& rs)
{
  QList<QStringList> lines;
  for (; !rs.eof(); rs.moveNext()) {
    QStringList line{QString(), rs.text("UnitCode"), rs.text("UnitName")};
    for (const char* const sum : Sums)
      line.append(ModFuntion::FormatDotText(rs.field(sum), session.DotSet.DotMoney));
    lines.append(line);
  }
  lines.append(QStringList());
  MSH.setBlock(1, lines);
  headTotals();
  addUp();
}

// The totals are sums of what the rows show, rounding included.
void frmGouDuiTogather::addUp()
{
  const int totals = MSH.rows() - 1;
  for (int col = FirstSum; col < MSH.cols(); ++col) {
    Currency sum;
    for (int row = 1; row < totals; ++row)
      sum += ModFuntion::MoneyOf(MSH.text(row, col));
    MSH.setText(totals, col, ModFuntion::FormatDotText(sum, session.DotSet.DotMoney));
  }
}

void frmGouDuiTogather::ToolInf_Click()
{
  if (!isOnRow())
    return;
  if (!m_detail || !m_detail->isOpen()) {
    m_detail = std::make_unique<frmGouDui>(session);
    m_detail->Form_Load();
  }
  copyConditions(*m_detail);
  m_detail->LabTabName.setCaption(DetailTitle);
  m_detail->setCaption(DetailTitle);
  m_detail->CmdQuery_Click();
  m_detail->FrameCondition.setEnabled(false);
  desk().show(*m_detail);
}

// The partner is the row's; its code and name are prefixes there, so that others may match, too.
void frmGouDuiTogather::copyConditions(frmGouDui& detail)
{
  detail.TxtBillCode.setText(TxtBillCode.text());
  detail.TxtDateeFrom.setText(TxtDateeFrom.text());
  detail.TxtDateeTo.setText(TxtDateeTo.text());
  detail.goodsLines->ChZZSFP.setChecked(goodsLines->ChZZSFP.isChecked());
  detail.goodsLines->ChPTFP.setChecked(goodsLines->ChPTFP.isChecked());
  detail.goodsLines->ChSJ.setChecked(goodsLines->ChSJ.isChecked());
  detail.TxtUnitCode.setText(Trim(MSH.text(MSH.row(), 1)));
  detail.TxtUnitName.setText(Trim(MSH.text(MSH.row(), 2)));
  detail.goodsLines->CombBillType.setText(goodsLines->CombBillType.text());
  detail.goodsLines->CombShowType.setText(goodsLines->CombShowType.text());
}

// The run ends with this screen, so the detail closes, too.
void frmGouDuiTogather::onUnload()
{
  if (m_detail)
    m_detail->close();
  GoodsLineForm::onUnload();
}
