#pragma once

#include "bills/BillForm.h"

// The payment: money paid to a supplier out of one or more cash or bank accounts.
class frmPayfund : public BillForm {
  Q_OBJECT

public:
  explicit frmPayfund(Session& session);

protected:
  QList<SaveCheck> saveChecks() const override;
  QStringList headerValues() const override;
  QStringList lineValues(int row) const override;
  void fillOwnFields(const Recordset& header) override;
  void clearOwnFields() override;
  void refreshAfterSave() override { RefreshBalanceLabel(); }
  Control& firstField() override { return *TxtName; }
  void pickLineAccount(int column) override;
  void ShowPartnerInfo() override;

private:
  bool partnerIsNamed();
  bool partnerIsKnown();
  bool TxtName_KeyPress(const Key& key);
  void ImgName_Click();
  // The balance as of the bill's date: what we owe the supplier. Keeps its text without a partner.
  void RefreshBalanceLabel();

  TextBox* TxtCode = nullptr;
  TextBox* TxtName = nullptr;
  Label* LabFundAttention = nullptr;
};
