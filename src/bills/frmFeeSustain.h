#pragma once

#include "bills/BillScreen.h"

// The fee offset: a fee set off against what a customer or a supplier owes or is owed; no money moves. Both modes
// share a pair of tables and this form.
class frmFeeSustain : public BillScreen {
  Q_OBJECT

public:
  explicit frmFeeSustain(Session& ofSession);

  void Form_Load() override;
  void FJXCAccount_Click() override;
  bool partnerBringsSaleMan() const override { return isSupplierMode(); }
  QString noPartnerMessage() const override;

protected:
  // The mode of the bill shown: BillMode, or the one that the title shows on a screen that was started for a stored
  // bill and then started a new bill.
  std::optional<QString> mode() const override;
  QString offsetType() const override;
  Statement billListClause() const override;
  void InitLineGrid() override;
  void showHeader(const Recordset& header) override;

private:
  bool isSupplierMode() const;
  bool isCustomerMode() const;
  bool hasBillMode() const;
  void showTitle();

  // The name of an OffsetMode; or, on a screen started for neither, the directive itself.
  QString BillMode;
};
