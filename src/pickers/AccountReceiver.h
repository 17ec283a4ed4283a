#pragma once

#include "database/Statement.h"

// A form with a line grid that takes an account from the tree picker. The bill forms with lines are
// such forms; the picker knows nothing else of them.
class AccountReceiver {
public:
  virtual ~AccountReceiver() = default;

  // Carries the account that this statement finds to the current line.
  virtual void Txt2ToMSH(const Statement& account) = 0;
};
