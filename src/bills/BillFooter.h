#pragma once

#include "screen/Controls.h"

// The footer of a bill screen: author, auditor, save options, and the waiting panel.
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
