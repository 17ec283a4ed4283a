#pragma once

#include "bills/BillScreen.h"

// The bank deposit or withdrawal: one amount from one cash or bank account to another. No lines and
// no partner; the whole bill is one row.
class frmBankKeepTake : public BillScreen {
  Q_OBJECT

public:
  explicit frmBankKeepTake(Session& ofSession);
};
