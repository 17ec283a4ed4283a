#pragma once

#include "pickers/AccountReceiver.h"
#include "screen/Form.h"

// A form of any name without a box, and with a line grid that notes down what it is handed.
class StandInCaller : public Form, public AccountReceiver {
public:
  using Form::Form;

  void Txt2ToMSH(const Statement& account) override { written = account.sql(); }

  QString written;
};
