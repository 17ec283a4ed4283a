#pragma once

#include "screen/EntryBox.h"

class BillScreen;

// Who handled the bill, and the remark.
class StaffArea {
public:
  explicit StaffArea(BillScreen& screen);

  TextBox TxtSaleMan;
  PickButton ImgSaleMan;
  EntryBox TxtMemo;

private:
  bool TxtSaleMan_KeyPress(const Key& key);
  void ImgSaleMan_Click();

  BillScreen& m_screen;
};
