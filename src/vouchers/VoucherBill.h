#pragma once

#include <QString>

namespace Vouchers {

// What a voucher needs of a cash bill as its screen shows it. The texts are those of the controls, untrimmed.
struct VoucherBill {
  // The kind of bill in the voucher settings: the caption of LabBillName, for a fee offset the BillMode.
  QString JXCTabName;
  QString headerTable;  // the form's own, "TabFee" or "TabElseIncome" by the caption
  QString code;         // of the stored bill; empty for one that is not stored
  QString TxtCode = {}; // the partner; empty for a bill without one
  QString TxtMoneyName = {};
  QString TxtMoneyRate = {};
  bool isTotalZero = false;
};

} // namespace Vouchers
