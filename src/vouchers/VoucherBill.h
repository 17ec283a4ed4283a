#pragma once

#include <QString>

namespace Vouchers {

// A cash bill as its screen shows it, as far as its voucher asks. The texts are those of the controls
// as they stand; who reads them cuts their blanks.
struct VoucherBill {
  // The kind of bill in the voucher settings: the caption of LabBillName, of a fee offset the BillMode.
  QString JXCTabName;
  QString headerTable;  // the form's own, "TabFee" or "TabElseIncome" by the caption
  QString code;         // of the stored bill; empty for one that is not stored
  QString TxtCode = {}; // the partner; blank for a bill without one
  QString TxtMoneyName = {};
  QString TxtMoneyRate = {};
  bool isTotalZero = false;
};

} // namespace Vouchers
