#pragma once

#include <QDate>
#include <QString>

#include <array>

class Recordset;
struct Session;

namespace Vouchers {

struct VoucherBill;

constexpr int BookCount = 3;

// The values of the stored bill that its voucher repeats.
struct SourceBill {
  QString Code;
  QDate Datee;
  int DateeY; // the accounting year and month of the date
  int DateeM;
  QString SumMoney; // as it is stored
};

// The values of a voucher's header that each of its lines repeats.
struct VoucherEntry {
  QString Code = {};
  std::array<qint16, BookCount> WarrantNum = {};
  std::array<qint16, BookCount> AccountBook = {};
  QString ZD;
};

// Writes the lines of a voucher, in place of the old ones, from the bill's header row and its lines. Amounts stay in
// the bill's currency. An account that is not in the chart is silently skipped, and the voucher then does not
// balance.
void WriteVoucherLines(Session& session, const VoucherBill& bill, const SourceBill& source, const Recordset& header,
                       const VoucherEntry& voucher);

} // namespace Vouchers
