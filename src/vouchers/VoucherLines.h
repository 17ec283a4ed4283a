#pragma once

#include "database/Statement.h"

#include <QString>

#include <array>

struct Session;

namespace Vouchers {

struct VoucherBill;

constexpr int BookCount = 3;

// The header of a voucher, as far as every one of its lines repeats it.
struct VoucherEntry {
  QString Code = {};
  std::array<qint16, BookCount> WarrantNum = {};
  std::array<qint16, BookCount> AccountBook = {};
  QString ZD;
};

// Writes the lines of a voucher anew, after dropping all it had, from the bill's header row (which
// `billSelect` selects) and its lines. Amounts stay in the bill's currency. An account that the
// chart does not have drops out without a word, and the voucher then does not balance.
void WriteVoucherLines(Session& session, const VoucherBill& bill, const Statement& billSelect, const VoucherEntry& voucher);

} // namespace Vouchers
