#pragma once

#include "bills/BillScreen.h"

// The receipt: money received from a customer into one or more cash or bank accounts. It also shows
// the source bills of the write-off, payments among them.
class frmGathefund : public BillScreen {
  Q_OBJECT

public:
  explicit frmGathefund(Session& ofSession);
};
