#include "bills/AmountBox.h"

#include "ledger/Money.h"
#include "session/Session.h"

AmountBox::AmountBox(const Session& session, QObject* parent, QAnyStringView name, const QString& allowed)
    : EntryBox(parent, name, allowed), m_session(session)
{
  setLatin(true);
  onFocusIn = [this] { setText(ModFuntion::StripMoneyText(text())); };
  onFocusOut = [this] { setText(formatted()); };
}

QString AmountBox::formatted() const
{
  return ModFuntion::FormatDotText(text(), m_session.DotSet.DotMoney);
}
