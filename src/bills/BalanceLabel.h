#pragma once

#include "platform/Currency.h"
#include "screen/Controls.h"

#include <optional>

class BillScreen;

// What is still open between us and the partner as of the bill's date. Without a partner it keeps its text.
class BalanceLabel {
public:
  // `sign` -1 shows the balance as what we owe, 1 as what is owed to us.
  BalanceLabel(BillScreen& screen, int sign);

  void refresh();
  void clear();
  // The balance shown, with its unit; empty without one.
  QString shown() const { return m_shown; }
  // The same as an amount; nothing without one.
  std::optional<Currency> balance() const { return m_balance; }

private:
  BillScreen& m_screen;
  const int m_sign;
  QString m_shown;
  std::optional<Currency> m_balance;
  Label LabFundAttention;
};
