#pragma once

#include "vouchers/VoucherSettings.h"

struct Session;

namespace Vouchers {

// Writes the header: a bill that has a voucher keeps its code and the numbers it had, also when the bill has moved to
// another period or book; otherwise a new one takes the numbers of the settings. Returns what the lines repeat of it;
// nothing if no code is free for a new voucher.
std::optional<VoucherEntry> writeVoucherHeader(Session& session, const SourceBill& bill, const VoucherSettings& settings);

} // namespace Vouchers
