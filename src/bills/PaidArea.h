#pragma once

#include "bills/AccountBoxes.h"
#include "bills/AmountBox.h"

class BillScreen;
class Recordset;
struct PickedNode;

// The cash and bank parts of an expense or other income, and their accounts.
class PaidArea {
public:
  explicit PaidArea(BillScreen& screen);

  void show(const Recordset& header);
  void clear();
  void addTo(BillRecord& record) const;
  Currency total() const;
  // True if the choice of an account picker was for one of the two parts, which has taken it.
  bool take(const PickedNode& account);

  // The checks of the accounts. Without an amount there is no account, whatever the boxes show.
  std::optional<Desk::Box> cashRefusal() { return refusal(m_cash); }
  std::optional<Desk::Box> bankRefusal() { return refusal(m_bank); }

private:
  // The cash or the bank part of the total.
  struct Part {
    const char16_t* target;  // the target of the picker's choice
    const char16_t* missing; // messages: no account, no such account
    const char16_t* wrong;
    QString accounts; // how the codes of its accounts begin
    AmountBox amount;
    AccountBoxes account;
  };

  bool nameKey(Part& part, const Key& key);
  void pickAccount(const Part& part);
  std::optional<Desk::Box> refusal(Part& part);
  void show(Part& part, const Recordset& header, const char* amount, const char* code, const char* name);

  BillScreen& m_screen;
  Container FramePay;
  Part m_cash;
  Part m_bank;
};
