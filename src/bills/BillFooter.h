#pragma once

#include "screen/Controls.h"

// The foot of a bill screen: who made and who audited the bill, what a save does besides, the waiting panel.
struct BillFooter {
  BillFooter(Control* screen, Control* panel);

  TextBox TxtOperator;
  TextBox TxtAuditing;
  CheckBox ChAutoAuditing;
  CheckBox ChAutoAdd;
  Container LoadingPic;
  ProgressBar Animation1;
  Label LabLoading;
  ScrollBar VS;
  ScrollBar HS;
};
