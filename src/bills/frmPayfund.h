#pragma once

#include "bills/BillScreen.h"

// The payment: money paid to a supplier out of one or more cash or bank accounts.
class frmPayfund : public BillScreen {
  Q_OBJECT

public:
  explicit frmPayfund(Session& ofSession);
};
