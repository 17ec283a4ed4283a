#pragma once

#include "bills/BillScreen.h"

// One form for two bills with the same fields, the expense and the other income: lines by account,
// and how much of their total went by cash and how much by bank. No partner. Which of the two it is
// follows the order at the start, and the table of a bill that is shown.
class frmFeeElseIncome : public BillScreen {
  Q_OBJECT

public:
  explicit frmFeeElseIncome(Session& ofSession);

  void Form_Load() override;
  void FillBill(const QString& table, const QString& code) override;
};
