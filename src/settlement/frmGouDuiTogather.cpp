#include "settlement/frmGouDuiTogather.h"

#include "ledger/Money.h"
#include "platform/Trim.h"

namespace {

constexpr ListColumn Columns[] = {
    {u"", 300}, {u"单位编号", 1500}, {u"单位名称", 2000}, {u"金额", 2000}, {u"折后金额", 2000}, {u"税额", 2000}, {u"含税金额", 2000},
};
constexpr int FirstSum = 3;
constexpr const char* Sums[] = {"SumMoneyy", "SumMoneyyDiscount", "SumTax", "SumMoneyyTax"};

constexpr ListTraits::Tool Tools[] = {
    {"ToolOldBill", "原单"}, {"ToolInf", "明细"}, {"ToolOK", "调入"}, {"ToolFiltre", "过滤"}, {"ToolPrint", "打印"}, {"ToolExit", "退出"},
};

constexpr ListTraits Traits{"frmGouDuiTogather",
                            "开票金额汇总表",
                            "汇总",
                            "注意：如果任何条件均不设置按查询则表示查询所有数据！单击票据勾对列进行勾对或取消勾对。",
                            "YYYY-MMM-DD",
                            Tools};

constexpr const char* ForeignOrders[] = {"购买订单调入查询", "销售订单调入查询", "购买订单查询",
                                         "销售订单查询",     "采购订单调入查询", "采购订单查询"};

constexpr char DetailTitle[] = "开票勾对明细显示";

} // namespace

frmGouDuiTogather::frmGouDuiTogather(Session& ofSession) : GoodsLineForm(ofSession, Traits, Columns, ForeignOrders)
{
  onTool("ToolInf", [this] { ToolInf_Click(); });
  MSH->onDoubleClick = [this] {
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

// A first partner without an amount hides all the others.
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
  MSH->setBlock(1, lines);
  headTotals();
  addUp();
}

// The totals are sums of what the rows show, rounding included.
void frmGouDuiTogather::addUp()
{
  const int totals = MSH->rows() - 1;
  for (int col = FirstSum; col < MSH->cols(); ++col) {
    Currency sum;
    for (int row = 1; row < totals; ++row)
      sum += ModFuntion::MoneyOf(MSH->text(row, col));
    MSH->setText(totals, col, ModFuntion::FormatDotText(sum, session.DotSet.DotMoney));
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
  m_detail->LabTabName->setCaption(DetailTitle);
  m_detail->setCaption(DetailTitle);
  m_detail->CmdQuery_Click();
  m_detail->FrameCondition->setEnabled(false);
  desk().show(*m_detail);
}

// The partner is the row's; its code and name are prefixes there, so that others may come with it.
void frmGouDuiTogather::copyConditions(frmGouDui& detail)
{
  detail.TxtBillCode->setText(TxtBillCode->text());
  detail.TxtDateeFrom->setText(TxtDateeFrom->text());
  detail.TxtDateeTo->setText(TxtDateeTo->text());
  detail.ChZZSFP->setChecked(ChZZSFP->isChecked());
  detail.ChPTFP->setChecked(ChPTFP->isChecked());
  detail.ChSJ->setChecked(ChSJ->isChecked());
  detail.TxtUnitCode->setText(Trim(MSH->text(MSH->row(), 1)));
  detail.TxtUnitName->setText(Trim(MSH->text(MSH->row(), 2)));
  detail.CombBillType->setText(CombBillType->text());
  detail.CombShowType->setText(CombShowType->text());
}

// The run ends with this screen, and the detail with the run.
void frmGouDuiTogather::onUnload()
{
  if (m_detail)
    m_detail->close();
  GoodsLineForm::onUnload();
}
