#include "settlement/frmSFKHeXiao.h"

#include "ledger/BillKinds.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "settlement/HXLinks.h"
#include "settlement/SingleMoney.h"
#include "settlement/WriteOffQuery.h"
#include "startup/Launcher.h"

using namespace Qt::StringLiterals;

namespace {

enum Column { RowNumber, BillCode, BillType, BillDatee, BillSumMoney = 7, Due, WrittenOff, Amount, Open, SFKCode };

constexpr ListColumn Columns[] = {
    {u"行次", 500},          {u"单据编号", 1500},   {u"单据类型", 1500},   {u"录单日期", 1500},     {u"单位编号", 1500},
    {u"单位名称", 3000},     {u"单据备注", 2000},   {u"单据金额", 1500},   {u"应核销金额", 1500},   {u"已核销金额", 1500},
    {u"本次核销金额", 1500}, {u"未核销金额", 1500}, {u"收付款单号", 1500}, {u"收付款单日期", 1500},
};
constexpr std::size_t WorkingColumns = 12;

constexpr ListTraits::Tool Tools[] = {
    {"ToolInOutBill", u"购销单"}, {"ToolSFKBill", u"收付款单"}, {"ToolHX", u"核销"},
    {"ToolFiltre", u"过滤"},      {"ToolPrint", u"打印"},       {"ToolExit", u"退出"},
};

constexpr ListTraits Traits{"frmSFKHeXiao",
                            u"收付款核销",
                            u"查询",
                            u"注意：如果任何条件均不设置按查询则表示查询所有未核销的数据！",
                            u"YYYY-MM-DD",
                            Tools,
                            ListTraits::Lists::WriteOffs};

// The kind of money bill that goods bills of this type are settled by; null if there is none.
const BillKind* settlingKind(const QString& goodsType)
{
  for (const BillKind* const kind : BillKinds::All)
    if (kind->writeOff)
      for (const char16_t* const type : kind->writeOff->goodsTypes)
        if (goodsType == QStringView(type))
          return kind;
  return nullptr;
}

constexpr int Red = 255;

constexpr QStringView SumsDiffer = u"设置的核销金额与收付款单金额不相等，请检查！";

QString negativeRow(int row)
{
  return u"第 "_s + QString::number(row) + u" 行未核销金额为负，请调整数据使其不能为负值！"_s;
}

} // namespace

frmSFKHeXiao::frmSFKHeXiao(Session& ofSession, const char16_t* mode)
    : ListForm(ofSession, Traits), LabSFKMoney(this, "LabSFKMoney"), LabRestore(this, "LabRestore"), HXMode(QString::fromUtf16(mode)),
      Text2(this, MSH), m_editor(MSH, Text2, Amount, [this] { takeAmount(); })
{
  LabSFKMoney.setCaption(u"核销金额"_s);
  LabSFKMoney.setVisible(false);
  find("ToolSFKBill")->setVisible(isQuery());
  onTool("ToolInOutBill", [this] { ShowInOutBill(); });
  onTool("ToolSFKBill", [this] { ShowSFKBill(); });
  onTool("ToolHX", [this] { CommitHX(); });
  MenuItem* const restore = new MenuItem(&MFile, "FRestoreHX");
  restore->setCaption(u"恢复核销"_s);
  restore->onClick = [this] { restoreLink(); };
  offerRestore();
}

void frmSFKHeXiao::Form_Load()
{
  writeOffs->CombHXState.setText(ConditionTexts::Unsettled.toString());
  writeOffs->CombHXType.setIndex(HXMode == QStringView(BillKinds::Payment.writeOff->mode) ? 1 : 0);
  LabTabName.setCaption(HXMode);
  const QDate day = session.params.OperateDate;
  const QDate first(day.year(), day.month(), 1);
  TxtDateeFrom.setText(QString::number(day.year()) + u'-' + QString::number(day.month()) + u"-1"_s);
  TxtDateeTo.setText(DateText::shortForm(first.addMonths(1)));
  SetGridHead();
}

std::span<const ListColumn> frmSFKHeXiao::columns() const
{
  return isQuery() ? std::span(Columns) : std::span(Columns).first(WorkingColumns);
}

QString frmSFKHeXiao::cell(int row, int col) const
{
  return Trim(MSH.text(row, col));
}

QString frmSFKHeXiao::goodsTable() const
{
  const bool isPayment = writeOffs->CombHXType.text() == QStringView(BillKinds::Payment.writeOff->mode);
  return QString::fromLatin1((isPayment ? BillKinds::Payment : BillKinds::Receipt).writeOff->goodsTable);
}

Statement frmSFKHeXiao::BuildQuerySql()
{
  if (!datesAreDates())
    return {};
  const QString table = goodsTable();
  if (isQuery() && writeOffs->CombHXState.text() == ConditionTexts::Settled)
    return WriteOffQuery::allLinks(table, conditions(), Trim(TxtBillCode.text()).isEmpty() ? nullptr : &SFKBillCode);
  if (!OpenRecordset(session, WriteOffQuery::linksOf(SFKBillCode)).eof())
    return WriteOffQuery::ownLinks(table, SFKBillCode);
  return WriteOffQuery::openBills(table, conditions());
}

// The box labelled with the money bill's code searches for the goods bill's own, which users rely on.
QList<Statement> frmSFKHeXiao::conditions() const
{
  const SqlName table(goodsTable());
  QList<Statement> pieces;
  const auto add = [&pieces, &table](const QString& text, const char* column) {
    if (!Trim(text).isEmpty())
      pieces.append({u" ({}.{}='{}') ", table, SqlName(column), Trim(text)});
  };
  add(TxtBillCode.text(), "Code");
  add(TxtUnitCode.text(), "UnitCode");
  add(TxtUnitName.text(), "UnitName");
  if (!Trim(TxtDateeFrom.text()).isEmpty())
    pieces.append({u" ({}.Datee>={}) ", table, dateOf(TxtDateeFrom)});
  if (!Trim(TxtDateeTo.text()).isEmpty())
    pieces.append({u" ({}.Datee<={}) ", table, dateOf(TxtDateeTo)});
  if (const Statement state = stateCondition(); !state.isEmpty())
    pieces.append(state);
  return pieces;
}

// The working list leaves out bills that were allocated beyond what is due; the query shows them, and leaves out
// bills with nothing due.
Statement frmSFKHeXiao::stateCondition() const
{
  const SqlName T(goodsTable());
  const QString state = writeOffs->CombHXState.text();
  const Statement due(u"{}.SumMoney-{}.Cash-{}.Credit", T, T, T);
  if (state == ConditionTexts::Unsettled && isQuery())
    return {u"  ({}<> {}.HXMoney   and {}>  0 ) ", due, T, due};
  if (state == ConditionTexts::Unsettled)
    return {u"  ({}> {}.HXMoney) ", due, T};
  if (state == ConditionTexts::Settled && !isQuery())
    return {u"  ({}= {}.HXMoney) ", due, T};
  return {};
}

void frmSFKHeXiao::FillMSH(const Statement& list)
{
  Text2.hide();
  desk().setBusy(true);
  const Recordset rs = OpenRecordset(session, list);
  if (rs.eof()) {
    tellNoData();
    emptyGrid();
  } else {
    showRows(rs);
  }
  SetGridHead();
  desk().setBusy(false);
}

void frmSFKHeXiao::showRows(const Recordset& rs)
{
  const RowSet& rows = rs.rows();
  const int fields = int(rows.names().size());
  QList<QStringList> lines;
  lines.reserve(rows.rows() + 1);
  for (std::int64_t row = 0; row < rows.rows(); ++row) {
    QStringList line(fields + 1);
    line[RowNumber] = QString::number(row + 1);
    for (int field = 0; field < fields; ++field)
      line[field + 1] = rows.value(row, field).toText();
    lines.append(settledLine(std::move(line)));
  }
  lines.append(QStringList());
  emptyGrid();
  MSH.setBlock(1, std::move(lines));
  MSH.setTotalsRow(true);
  MSH.setColColor(Amount, Red);
  MSH.setLatin(Amount);
  RefreshTotals();
}

// What is due and what other bills have settled is queried bill by bill: HXMoney may be stale.
QStringList frmSFKHeXiao::settledLine(QStringList line)
{
  const float due = HXLinks::GetBillDueMoney(session, line[BillCode], line[BillType]);
  const float amount = SingleMoney::of(line[Amount]);
  line[Due] = NumberText::ofSingle(due);
  line[WrittenOff] = SingleMoney::difference(HXLinks::GetBillHXSum(session, line[BillCode]), {amount});
  line[Open] = SingleMoney::difference(due, {SingleMoney::of(line[WrittenOff]), amount});
  return line;
}

void frmSFKHeXiao::RefreshTotals()
{
  const int totals = MSH.rows() - 1;
  // A goods bill may be listed once for each of its links, and its own amounts would be added as often.
  const bool listsLinks = isQuery() && writeOffs->CombHXState.text() == ConditionTexts::Settled;
  for (int col = BillSumMoney; col <= Open; ++col) {
    QString text;
    if (!listsLinks || col == WrittenOff || col == Amount) {
      Currency sum;
      for (int row = 1; row <= lastDataRow(); ++row)
        sum += Currency::ofText(MSH.text(row, col));
      text = sum.toText();
    }
    MSH.setText(totals, col, text);
  }
  Text2.hide();
}

void frmSFKHeXiao::takeAmount()
{
  const int row = MSH.row();
  const float amount = SingleMoney::of(cell(row, Amount));
  MSH.setText(row, Open, SingleMoney::difference(SingleMoney::of(cell(row, Due)), {SingleMoney::of(cell(row, WrittenOff)), amount}));
  if (amount == 0)
    dropLink(row);
  RefreshTotals();
}

void frmSFKHeXiao::dropLink(int row)
{
  const QString code = cell(row, BillCode);
  const QString money = isQuery() ? cell(row, SFKCode) : SFKBillCode;
  const auto link = HXLinks::linkOf(session, code, money);
  HXLinks::DeleteHXLink(session, code, cell(row, BillType), money);
  if (link)
    m_dropped.append({*link, cell(row, BillType), HXLinks::GetBillHXSum(session, code)});
  offerRestore();
}

void frmSFKHeXiao::offerRestore()
{
  LabRestore.setVisible(!m_dropped.isEmpty());
  find("FRestoreHX")->setEnabled(!m_dropped.isEmpty());
  if (m_dropped.isEmpty())
    return;
  const HXLinks::StoredLink& link = m_dropped.last().link;
  LabRestore.setCaption(u"已取消 %1 的核销 %2　Ctrl+Z 恢复"_s.arg(link.InOutBillCode, link.HXMoney));
}

// Refused if more of the goods bill has been settled since.
void frmSFKHeXiao::restoreLink()
{
  const auto [link, billType, settledByOthers] = m_dropped.takeLast();
  offerRestore();
  bool isDone = false;
  inOneTransaction(session, [&] {
    isDone = HXLinks::GetBillHXSum(session, link.InOutBillCode) <= settledByOthers;
    if (isDone)
      HXLinks::putBack(session, link, billType);
  });
  if (!isDone)
    return desk().inform(u"该单据已有新的核销，不能恢复！"_s);
  for (int row = 1; row <= lastDataRow(); ++row) {
    if (cell(row, BillCode) != link.InOutBillCode || (isQuery() && cell(row, SFKCode) != link.SFKBillCode))
      continue;
    const float amount = SingleMoney::of(link.HXMoney);
    MSH.setText(row, Amount, NumberText::ofDouble(NumberText::numericPrefix(link.HXMoney)));
    MSH.setText(row, Open, SingleMoney::difference(SingleMoney::of(cell(row, Due)), {SingleMoney::of(cell(row, WrittenOff)), amount}));
  }
  RefreshTotals();
}

void frmSFKHeXiao::CommitHX()
{
  if (isQuery()) {
    desk().inform(u"收付款核销查询状态下不允许操作核销！"_s);
    return;
  }
  if (!allocatesWholeBill())
    return;
  bool isDone = false;
  inOneTransaction(session, [&] {
    QList<int> rows;
    for (int row = 1; row <= lastDataRow(); ++row)
      if (SingleMoney::of(cell(row, Amount)) != 0)
        rows.append(row);
    if (!isUnchanged())
      return desk().inform(SumsDiffer.toString());
    isDone = std::all_of(rows.begin(), rows.end(), [this](int row) { return isStillOpen(row); });
    for (const int row : rows)
      if (isDone)
        SaveHXRow(row);
  });
  if (!isDone)
    return;
  m_dropped.clear();
  offerRestore();
  desk().inform(u"核销成功！"_s);
}

bool frmSFKHeXiao::allocatesWholeBill()
{
  float total = 0;
  for (int row = 1; row <= lastDataRow(); ++row) {
    if (SingleMoney::of(cell(row, Open)) < 0) {
      desk().inform(negativeRow(row), [this, code = cell(row, BillCode)] { return HXLinks::othersInWords(session, code, SFKBillCode); });
      return false;
    }
    total = float(double(total) + NumberText::numericPrefix(cell(row, Amount)));
  }
  if (total != SFKMoney)
    desk().inform(SumsDiffer.toString());
  return total == SFKMoney;
}

// Reads again what is due and what other money bills have settled: another user may have settled the same bill since it
// was listed. False, after the message, if less is open than the row allocates.
bool frmSFKHeXiao::isStillOpen(int row)
{
  const float due = HXLinks::GetBillDueMoney(session, cell(row, BillCode), cell(row, BillType));
  const float settled = HXLinks::GetOthersHXSum(session, cell(row, BillCode), SFKBillCode);
  MSH.setText(row, Due, NumberText::ofSingle(due));
  MSH.setText(row, WrittenOff, NumberText::ofSingle(settled));
  MSH.setText(row, Open, SingleMoney::difference(due, {settled, SingleMoney::of(cell(row, Amount))}));
  if (SingleMoney::of(cell(row, Open)) >= 0)
    return true;
  desk().inform(negativeRow(row), [this, code = cell(row, BillCode)] { return HXLinks::othersInWords(session, code, SFKBillCode); });
  return false;
}

void frmSFKHeXiao::SaveHXRow(int row)
{
  HXLinks::SaveHXRow(session, {cell(row, BillCode), cell(row, BillType), cell(row, BillDatee), SFKBillCode, SFKBillDatee,
                               NumberText::ofDouble(NumberText::numericPrefix(cell(row, Amount)))});
}

void frmSFKHeXiao::ShowInOutBill()
{
  const QString billType = cell(MSH.row(), BillType);
  if (!isOnRow() || !settlingKind(billType))
    return;
  Mod_ZORVEKMain::RunSiblingProgram(session, billType + u"原单查看"_s,
                                    {u"收付款核销"_s, billType, HXLinks::BillTableOfType(billType), textUnder(u"单据编号"_s)});
}

void frmSFKHeXiao::ShowSFKBill()
{
  if (!isOnRow())
    return;
  const QString code = textUnder(u"收付款单号"_s);
  if (code.isEmpty()) {
    desk().inform(u"不能确定收付款单号，请先点击选择需要显示的行！"_s);
    return;
  }
  if (const BillKind* const kind = settlingKind(cell(MSH.row(), BillType)))
    Mod_ZORVEKMain::RunSiblingProgram(
        session, QString::fromUtf16(kind->name) + u"原单查看"_s,
        {u"收付款核销"_s, QString::fromUtf16(kind->writeOff->sourceOrder), QLatin1String(kind->headerTable), code});
}

void frmSFKHeXiao::goToFirstAmount()
{
  if (lastDataRow() < 1)
    return;
  MSH.setCurrent(1, Amount);
  setFocus(MSH);
}
