#pragma once

#include "billstore/BillRecord.h"
#include "screen/EntryBox.h"

class BillScreen;
class Recordset;

// The currency of a bill and its rate; hidden in an account set without multiple currencies, whose bills have none.
class CurrencyArea {
public:
  explicit CurrencyArea(BillScreen& screen);

  void load();
  // `row` is a header or a line.
  void show(const Recordset& row);
  // Without currencies a bill has none, whatever the previous bill had.
  void clear();
  void addTo(BillRecord& record) const;

  Container FrameMoneyType;
  ComboBox TxtMoneyName;
  EntryBox TxtMoneyRate;

private:
  void TxtMoneyName_Change();

  BillScreen& m_screen;
};
