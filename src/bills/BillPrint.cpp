#include "bills/BillForm.h"
#include "bills/LineGrid.h"

#include "ledger/ModDaXie.h"
#include "ledger/Money.h"
#include "platform/Trim.h"
#include "printing/PrintHandOff.h"
#include "printing/frmExport.h"
#include "screen/Grid.h"
#include "session/Mod_ZORVEKMain.h"
#include "session/ModuleADO.h"

// The printouts of a bill.

void BillForm::PrintHandOff(const QString& printType)
{
  if (!mayDo(RightKind::Print))
    return;
  PrintJob job{
      .title = billName(), .head = printLines(traits().printHead), .foot = printLines(traits().printFoot), .printed = printedGrid()};
  if (isVoided())
    job.title += "（已作废）";
  ::PrintHandOff(session, job, printType);
}

QStringList BillForm::printLines(std::span<const PrintLine> lines) const
{
  QStringList texts;
  for (const PrintLine& line : lines)
    texts.append(QString::fromUtf16(line.label) + printedText(line));
  return texts;
}

// A bill that is not stored has no code yet, whatever its box shows.
QString BillForm::printedText(const PrintLine& line) const
{
  const Control* const control = find(QString::fromLatin1(line.control));
  return control == TxtBillCode ? m_stored.code : Trim(control->shownText());
}

void BillForm::PrintBill_Excel(const QString& templateName, BillTemplate::Finish finish)
{
  if (!mayDo(RightKind::Print))
    return;
  BillTemplate::PrintBill_Excel(session, {.templateName = templateName,
                                          .billCode = m_stored.code,
                                          .headerTable = headerTable(),
                                          .placeholders = [this] { return placeholders(); },
                                          .lines = find<Grid>("MSH"),
                                          .amountColumn = LineGrid::Amount,
                                          .finish = finish});
}

void BillForm::FExcle_PT_Click()
{
  if (mayDo(RightKind::Print))
    frmExport(session).Export2Excel(*find<Grid>("MSH"));
}

void BillForm::MPrintSet_Excel_Click()
{
  const QString reports = QStringLiteral("外部报表管理");
  if (!CheckOperateRight(session, session.params.UserName, reports, RightKind::Read))
    return;
  if (!Mod_ZORVEKMain::RunSiblingProgram(session, reports, {reports}))
    session.desk.inform(QStringLiteral("启动外部报表管理模块意外失败，请重新操作！"));
}

QList<BillTemplate::Placeholder> BillForm::placeholders() const
{
  QList<BillTemplate::Placeholder> all;
  for (const TemplateWord& word : traits().templateWords) {
    // A fee offset knows no balance, and no word for it.
    if (word.source == TemplateWord::Source::Balance && !find(QString::fromLatin1(word.name)))
      continue;
    all.append({QString::fromUtf16(word.word), placeholderValue(word), word.isAmount()});
  }
  return all;
}

QString BillForm::placeholderValue(const TemplateWord& word) const
{
  using Source = TemplateWord::Source;
  const QString name = QString::fromLatin1(word.name);
  const auto shown = [&] { return Trim(find(name)->shownText()); };
  const QString dateForm = QStringLiteral("yyyy年MM月dd日");
  switch (word.source) {
  case Source::Text:
  case Source::Amount: return shown();
  case Source::IfVisible: return find(name)->isVisible() ? shown() : QString();
  case Source::Partner:
    return queriedText({u"select {} from TabClient where Code='{}' ", SqlName(name), Trim(find(QStringLiteral("TxtCode"))->shownText())});
  case Source::Company: return queriedText({u"select {} from TabCompanyInf  ", SqlName(name)});
  case Source::BillDate: return DTPDate->date().toString(dateForm);
  case Source::Today: return session.machine.today().toString(dateForm);
  case Source::Capitals: return capitals(shown());
  case Source::Balance: return find(name)->isVisible() ? shown().mid(7) : QString();
  case Source::PaidTogether: return totalPaid();
  }
  return {};
}

// The first field of the first row, blank without a row.
QString BillForm::queriedText(const Statement& statement) const
{
  const Recordset rs = OpenRecordset(session, statement);
  return rs.eof() ? QString() : rs.trimmed(rs.rows().names().first());
}

QString BillForm::capitals(const QString& amount) const
{
  QString digits = amount;
  for (const QChar mark : QStringLiteral(",。￥"))
    digits.remove(mark);
  return ModDaXie::CapitalAmountText(session.desk, digits, QStringLiteral("货币型"));
}

QString BillForm::totalPaid() const
{
  const auto amount = [this](const char* box) { return ModFuntion::MoneyOf(find(QString::fromLatin1(box))->shownText()); };
  return (amount("TxtCash") + amount("TxtTransfer")).toText();
}
