#pragma once

#include "bills/PartnerBillForm.h"
#include "settlement/WriteOff.h"

// The payment and the receipt: money that a partner gets or gives, over one or more cash or bank
// accounts, with what is still open between us and him as of the bill's date.
class FundBillForm : public PartnerBillForm {
  Q_OBJECT

public:
  // `balanceSign` -1 shows the balance as what we owe, 1 as what is owed to us.
  FundBillForm(Session& session, const BillTraits& traits, int balanceSign, const WriteOff::Kind& writeOff);

protected:
  void fillOwnFields(const Recordset& header) override;
  void clearOwnFields() override;
  void refreshAfterSave() override { RefreshBalanceLabel(); }
  void openWriteOff() override;

private:
  // The balance keeps its text without a partner.
  void RefreshBalanceLabel();

  const int m_balanceSign;
  const WriteOff::Kind& m_writeOff;
  Label* LabFundAttention = nullptr;
};
