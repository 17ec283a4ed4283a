#pragma once

#include "bills/AccountBoxes.h"
#include "bills/AmountBox.h"

class BillScreen;
class Recordset;

// The amount of a bank bill, and the accounts that it moves from and to.
class TransferArea {
public:
  explicit TransferArea(BillScreen& screen);

  void show(const Recordset& header);
  void clear();
  void addTo(BillRecord& record) const;
  Currency total() const;

  // The checks of the accounts.
  std::optional<Desk::Box> outgoingRefusal() { return refusal(outgoing, u"转出账户"); }
  std::optional<Desk::Box> incomingRefusal() { return refusal(incoming, u"转入账户"); }

  Label LabAccountNameC;
  AccountBoxes outgoing;
  Label LabAccountNameR;
  AccountBoxes incoming;
  AmountBox TxtMoney;

private:
  void pickAccount(AccountBoxes& boxes, const char16_t* kind);
  std::optional<Desk::Box> refusal(AccountBoxes& boxes, QStringView kind);

  BillScreen& m_screen;
};
