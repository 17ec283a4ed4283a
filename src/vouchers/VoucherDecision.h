#pragma once

struct Session;

namespace Vouchers {

struct VoucherBill;

enum class VoucherDecision {
  Refused,   // the message has been shown and nothing may be saved
  Wanted,    // after the save: GenerateVoucher
  NotWanted, // after the save: DeleteVoucher
};

// Called at save, after the form's own checks and before the first write: whether the bill gets a voucher by the
// settings of its kind. Refuses a partner without the account that the voucher needs, and a bill whose voucher is
// posted.
VoucherDecision DecideVoucher(Session& session, const VoucherBill& bill);

// True, after the message, if the voucher of the bill is posted.
bool refusesPosted(Session& session, const VoucherBill& bill);

} // namespace Vouchers
