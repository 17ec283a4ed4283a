#pragma once

#include "bills/BillScreen.h"

// One form for two bills with the same fields, the expense and the other income: lines by account, and the cash and
// bank parts of their total. No partner. The directive at the start decides which of the two it is, or else the table
// of the bill shown.
class frmFeeElseIncome : public BillScreen {
  Q_OBJECT

public:
  explicit frmFeeElseIncome(Session& ofSession);

  void Form_Load() override;
  void FillBill(const QString& table, const QString& code) override;
};
