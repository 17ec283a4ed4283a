#include "bills/AmountBox.h"

#include "ledger/Money.h"
#include "session/Session.h"

AmountBox::AmountBox(const Session& session, QObject* parent, QAnyStringView name, const QString& allowed) : EntryBox(parent, name, allowed)
{
  onFocusIn = [this] { setText(ModFuntion::StripMoneyText(text())); };
  onFocusOut = [this, &session] { setText(ModFuntion::FormatDotText(text(), session.DotSet.DotMoney)); };
}
