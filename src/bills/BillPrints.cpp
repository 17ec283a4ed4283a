#include "bills/BillPrints.h"

#include "bills/BillScreen.h"
#include "ledger/ModDaXie.h"
#include "platform/Trim.h"
#include "printing/PrintHandOff.h"
#include "printing/frmExport.h"
#include "session/ModuleADO.h"
#include "startup/Launcher.h"

using namespace Qt::StringLiterals;

namespace BillPrints {
namespace {

QString shownText(const BillScreen& screen, const char* control)
{
  return Trim(screen.find(control)->shownText());
}

// A bill that is not stored has no code yet, whatever its box shows.
QStringList printLines(const BillScreen& screen, std::span<const PrintLine> lines)
{
  QStringList texts;
  for (const PrintLine& line : lines) {
    const bool isCode = screen.find(line.control) == &screen.TxtBillCode;
    texts.append(QString::fromUtf16(line.label) + (isCode ? screen.store.bill().code : shownText(screen, line.control)));
  }
  return texts;
}

// The lines of an expense or other income are not printed, and the grid of a bank bill is empty.
ModSavePrintData::PrintGrid printedGrid(const BillScreen& screen)
{
  if (screen.paid)
    return {};
  return screen.lines ? printedLines(screen.MSH) : ModSavePrintData::PrintGrid{.grid = &screen.MSH};
}

QString capitals(const BillScreen& screen, QString amount)
{
  for (const QChar mark : u",。￥"_s)
    amount.remove(mark);
  return ModDaXie::CapitalAmountText(screen.desk(), amount, u"货币型"_s);
}

// The values of the template words of one printout.
class WordValues {
public:
  explicit WordValues(const BillScreen& screen) : m_screen(screen)
  {
    if (screen.partner)
      m_partner = OpenRecordset(screen.session, {u"select Address,LinkMan,Tel,TaxCode,Bank,BankCode from TabClient where Code='{}' ",
                                                 Trim(screen.partner->TxtCode.text())});
  }

  QString of(const TemplateWord& word) const
  {
    const QString dateForm = u"yyyy年MM月dd日"_s;
    switch (word.value) {
    case TemplateWord::Text:
    case TemplateWord::Amount: return shownText(m_screen, word.name);
    case TemplateWord::IfVisible: return m_screen.find(word.name)->isVisible() ? shownText(m_screen, word.name) : QString();
    case TemplateWord::Partner: return m_partner.eof() ? QString() : m_partner.trimmed(word.name);
    case TemplateWord::Company: return companyName();
    case TemplateWord::BillDate: return m_screen.DTPDate.date().toString(dateForm);
    case TemplateWord::Today: return m_screen.session.machine.today().toString(dateForm);
    case TemplateWord::Capitals: return capitals(m_screen, shownText(m_screen, word.name));
    case TemplateWord::Balance: return m_screen.balance->shown();
    case TemplateWord::PaidTogether: return m_screen.paid->total().toText();
    }
    return {};
  }

private:
  QString companyName() const
  {
    const Recordset rs = OpenRecordset(m_screen.session, {u"select Name from TabCompanyInf  "});
    return rs.eof() ? QString() : rs.trimmed("Name");
  }

  const BillScreen& m_screen;
  Recordset m_partner;
};

QList<BillTemplate::Placeholder> placeholders(const BillScreen& screen)
{
  const WordValues values(screen);
  QList<BillTemplate::Placeholder> all;
  for (const TemplateWord& word : TemplateWords)
    if (screen.traits().has(word.of))
      all.append({QString::fromUtf16(word.word), values.of(word), word.isAmount()});
  return all;
}

} // namespace

void PrintHandOff(const BillScreen& screen, const QString& printType)
{
  if (!screen.mayDo(RightKind::Print))
    return;
  const BillTraits& traits = screen.traits();
  ::PrintHandOff(screen.session,
                 {.title = screen.billName() + (screen.isVoided() ? u"（已作废）"_s : QString()),
                  .head = printLines(screen, traits.printHead),
                  .foot = printLines(screen, traits.printFoot),
                  .printed = printedGrid(screen)},
                 printType);
}

void PrintBill_Excel(const BillScreen& screen, const QString& templateName, BillTemplate::Finish finish)
{
  if (!screen.mayDo(RightKind::Print))
    return;
  BillTemplate::PrintBill_Excel(screen.session, {.templateName = templateName,
                                                 .billCode = screen.store.bill().code,
                                                 .headerTable = screen.store.headerTable(),
                                                 .placeholders = [&screen] { return placeholders(screen); },
                                                 .lines = &screen.MSH,
                                                 .amountColumn = LineArea::Amount,
                                                 .finish = finish});
}

void FExcle_PT_Click(const BillScreen& screen)
{
  if (screen.mayDo(RightKind::Print))
    frmExport(screen.session).Export2Excel(screen.MSH);
}

void MPrintSet_Excel_Click(const BillScreen& screen)
{
  const QString reports = u"外部报表管理"_s;
  if (!CheckOperateRight(screen.session, screen.session.params.UserName, reports, RightKind::Read))
    return;
  if (!Mod_ZORVEKMain::RunSiblingProgram(screen.session, reports, {reports}))
    screen.desk().inform(u"启动外部报表管理模块意外失败，请重新操作！"_s);
}

} // namespace BillPrints
