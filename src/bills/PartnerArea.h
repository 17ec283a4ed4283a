#pragma once

#include "billstore/BillRecord.h"
#include "screen/EntryBox.h"

class BillScreen;
class Recordset;

// The trading partner of a bill, found by typing part of a code or name or in the code picker.
class PartnerArea {
public:
  explicit PartnerArea(BillScreen& screen);

  void show(const Recordset& header);
  void clear();
  void addTo(BillRecord& record) const;
  // Opens the partner's record in the program that maintains it.
  void ShowPartnerInfo();

  TextBox TxtCode;
  TextBox TxtName;
  PickButton ImgName;

private:
  bool TxtName_KeyPress(const Key& key);
  void ImgName_Click();

  BillScreen& m_screen;
};
