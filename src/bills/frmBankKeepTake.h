#pragma once

#include "bills/BillForm.h"

// The bank deposit or withdrawal: one amount from one cash or bank account to another. No lines and
// no partner; the whole bill is one row.
class frmBankKeepTake : public BillForm {
  Q_OBJECT

public:
  explicit frmBankKeepTake(Session& ofSession);

protected:
  QList<SaveCheck> saveChecks() const override;
  QList<Statement> headerValues() const override;
  Currency totalMoney() const override;
  void fillOwnFields(const Recordset& header) override;
  void clearOwnFields() override;
  // The grid that holds nothing.
  ModSavePrintData::PrintGrid printedGrid() const override { return {.grid = MSH, .totalColumns = 2}; }
  Control& firstField() override { return *m_outgoing.name; }

private:
  // One of the two accounts as it stands on the form.
  struct AccountBoxes {
    const char16_t* kind; // the picker's title, and what the refusals call it
    TextBox* code = nullptr;
    TextBox* name = nullptr;
  };

  void buildAccount(AccountBoxes& boxes, const char* caption, const QString& side);
  void pickAccount(const AccountBoxes& boxes);
  bool accountIsGiven(const AccountBoxes& boxes);
  bool outgoingIsGiven() { return accountIsGiven(m_outgoing); }
  bool incomingIsGiven() { return accountIsGiven(m_incoming); }
  bool accountsDiffer();
  bool amountIsNotZero();
  // Deposit or withdrawal, by the outgoing account's code alone.
  QString modeText() const;
  bool TxtMoney_KeyPress(const Key& key);

  AccountBoxes m_outgoing{u"转出账户"};
  AccountBoxes m_incoming{u"转入账户"};
  TextBox* TxtMoney = nullptr;
  Grid* MSH = nullptr;
};
