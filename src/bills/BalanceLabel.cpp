#include "bills/BalanceLabel.h"

#include "bills/BillScreen.h"
#include "ledger/Balance.h"
#include "ledger/Money.h"
#include "platform/Trim.h"

using namespace Qt::StringLiterals;
using namespace ModFuntion;

namespace {

constexpr char16_t Heading[] = u"截止当日尚欠：";

} // namespace

BalanceLabel::BalanceLabel(BillScreen& screen, int sign) : m_screen(screen), m_sign(sign), LabFundAttention(&screen.Pic, "LabFundAttention")
{
  clear();
  screen.partner->TxtName.onChange = [this] { refresh(); };
}

void BalanceLabel::refresh()
{
  Session& session = m_screen.session;
  const QString code = Trim(m_screen.partner->TxtCode.text());
  if (code.isEmpty())
    return;
  const QString currency = session.params.IsLotMoney ? Trim(m_screen.currency.TxtMoneyName.text()) : QString();
  const Currency balance = GetOutstandingBalance(session, code, m_screen.DTPDate.date(), currency, IsAuditedOnly(session));
  m_balance = m_sign < 0 ? -balance : balance;
  m_shown = FormatDotText(*m_balance, session.DotSet.DotMoney) + u"元"_s;
  LabFundAttention.setCaption(QString::fromUtf16(Heading) + m_shown);
}

void BalanceLabel::clear()
{
  m_shown.clear();
  m_balance.reset();
  LabFundAttention.setCaption(QString::fromUtf16(Heading));
}
