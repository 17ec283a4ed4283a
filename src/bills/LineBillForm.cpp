#include "bills/LineBillForm.h"

#include "ledger/MasterData.h"
#include "ledger/Money.h"
#include "pickers/TreePicker.h"
#include "platform/Trim.h"
#include "printing/GridLayout.h"
#include "printing/PrintHandOff.h"
#include "session/ModuleADO.h"

using namespace ModFuntion;

void LineBillForm::buildLines()
{
  add<Label>(Pic, "LabAttention", QString::fromUtf16(traits().lines->attention));
  MSH = add<Grid>(Pic, "MSH");
  Text2 = new CellEditor(Pic, *MSH);
  FrameTotal = add<Container>(Pic, "FrameTotal", "合计信息");
  LabTotalMoney = add<Label>(FrameTotal, "LabTotalMoney");
  m_lines.reset(new LineGrid(session, *this, *MSH, *Text2, *LabTotalMoney));
}

QStringList LineBillForm::accountHeadings() const
{
  return {QString::fromUtf16(traits().lines->accountCodeHeading), QString::fromUtf16(traits().lines->accountNameHeading)};
}

QString LineBillForm::layoutKey() const
{
  return GridLayout::keyOf(billName());
}

// Works on the live grid; laying it out again would take typed lines away.
void LineBillForm::FMSHFormat_Click()
{
  closeCellEditor();
  GridLayout::FMSHFormat_Click(session, *MSH, billName());
}

ModSavePrintData::PrintGrid LineBillForm::printedGrid() const
{
  return printedLines(*MSH);
}

Currency LineBillForm::totalMoney() const
{
  return MoneyOf(LabTotalMoney->caption());
}

void LineBillForm::pickLineAccount()
{
  const LineTraits& lines = *traits().lines;
  const TreePickerCall call{.TreeWhere = lines.accountFilter,
                            .TreeKind = QString::fromUtf16(lines.accountPickerTitle),
                            .TreeTarget = QString::fromUtf16(lines.accountPickerTarget)};
  if (const auto picked = TreePicker::pick(session, call))
    takeAccount(*picked);
}

void LineBillForm::takeAccount(const PickedNode& account)
{
  m_lines->Txt2ToMSH({u"select * from TabAccountantType where Code='{}'", account.code});
}

void LineBillForm::fillLines(const QString& table, const QString& code)
{
  const LineTraits& lines = *traits().lines;
  Recordset rs = OpenRecordset(session, {u"select * from {} where {}='{}'", SqlName(table + "Inf"), SqlName(lines.linkColumn), code});
  QList<LineGrid::Line> shown;
  for (; !rs.eof(); rs.moveNext()) {
    shown.append({rs.text(lines.accountCodeColumn), rs.text(lines.accountNameColumn), rs.text("Moneyy"), rs.text("Remark")});
    fillFromLine(rs);
  }
  LabTotalMoney->setCaption(FormatDotText(m_lines->showLines(shown), session.DotSet.DotMoney));
}

bool LineBillForm::amountsFit()
{
  Currency total;
  for (int row = 1; row <= m_lines->lineCount(); ++row)
    total += m_lines->amount(row);
  return true;
}

bool LineBillForm::hasLines()
{
  if (MSH->rows() >= 3)
    return true;
  session.desk.inform(QString::fromUtf16(traits().lines->noLines));
  return false;
}

bool LineBillForm::lineAccountsAreLeaves()
{
  for (int row = 1; row <= m_lines->lineCount(); ++row) {
    const auto account = CheckLeafRecord(session, m_lines->text(row, LineGrid::AccountCode), "TabAccountantType", "Code");
    if (!account) {
      session.desk.inform(QString::fromUtf16(traits().lines->wrongAccount) + MSH->text(row, LineGrid::AccountName) +
                          "  的名称不正确（原因：名称不存在或不是处于目录末级），" + "请重新输入！");
      return false;
    }
    // Only the code is looked up; a right code with a wrong name is mended without a word.
    m_lines->setAccount(row, account->Code, account->Name);
  }
  return true;
}

bool LineBillForm::noLineIsNegative()
{
  for (int row = 1; row <= m_lines->lineCount(); ++row) {
    if (m_lines->amount(row) >= Currency())
      continue;
    session.desk.inform(QStringLiteral("不允许出现负数！"));
    return false;
  }
  return true;
}

void LineBillForm::insertLines()
{
  for (int row = 1; row <= m_lines->lineCount(); ++row)
    OpenRecordset(session, {u"insert into {} values({})", SqlName(traits().lines->table), Statement::joined(lineValues(row), u",")});
}

QList<Statement> LineBillForm::lineValues(int row) const
{
  return QList<Statement>{sqlNumber(SqlNumber(row)), sqlText(dateText()), sqlText(billCode())} + partnerValues() +
         QList<Statement>{
             sqlText(m_lines->text(row, LineGrid::AccountCode)),
             sqlText(m_lines->text(row, LineGrid::AccountName)),
             sqlNumber(SqlNumber(m_lines->amount(row))),
             sqlText(m_lines->text(row, LineGrid::Remark)),
             sqlText("正常"),
         } +
         closingValues();
}
