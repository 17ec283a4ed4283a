#pragma once

#include "bills/PartnerBillForm.h"

// The fee offset: a fee set off against what a customer or a supplier owes or is owed; no money
// moves. Two kinds of row in one pair of tables, and one form for both.
class frmFeeSustain : public PartnerBillForm {
  Q_OBJECT

public:
  explicit frmFeeSustain(Session& ofSession);

  void frm_Initialize(bool keepScreen) override;

protected:
  void Form_Load() override;
  QList<SaveCheck> saveChecks() const override;
  QList<Statement> kindValues() const override;
  void InitLineGrid() override;
  void fillOwnFields(const Recordset& header) override;
  Statement billListClause() const override;
  QString rightFunction() const override { return mode(); }
  QString voucherKind() const override { return mode(); }
  void FJXCAccount_Click() override;
  SqlLiteral partnerColumns() const override;
  bool partnerBringsSaleMan() const override { return isSupplierMode(); }
  QString noPartnerMessage() const override;

private:
  // The mode of the bill shown: BillMode, or the one that the title shows on a screen that was started for a stored bill
  // and then asked for a new one.
  QString mode() const;
  bool isSupplierMode() const;
  bool isCustomerMode() const;
  void showTitle();

  // "费用抵冲(客户)" or "费用抵冲(供应商)"; on a screen that was ordered for neither, the order as it is.
  QString BillMode;
};
