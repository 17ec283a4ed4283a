#pragma once

#include <vector>

class RowWriter;

namespace SampleFirm {

struct CashBill;

// How the vouchers of each kind of bill are made, and the voucher of every bill that is not void.
void writeVouchers(RowWriter& rows, const std::vector<CashBill>& bills);

} // namespace SampleFirm
