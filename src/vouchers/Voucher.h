#pragma once

#include <QString>

#include <optional>

struct Session;

// The accounting voucher of a saved bill: derived from it at every save, found by its code (JXCBillCode), never
// edited here. One row of TabWarrant and its lines. As everywhere, a failed statement shows its box and the next one
// runs: a header without lines can remain.
namespace Vouchers {

struct VoucherBill;

// Writes the voucher of a bill that has just been saved, or rewrites it with the code and the numbers it had, and
// marks the bill. A bill dated in a closed accounting period gets a message and keeps its voucher; a bill that needs
// no voucher is marked nevertheless.
void GenerateVoucher(Session& session, const VoucherBill& bill);

// The voucher of a bill.
struct StoredVoucher {
  QString code;
  bool isPosted;
};
// Nothing if the bill is not stored or has none.
std::optional<StoredVoucher> voucherOf(Session& session, const QString& billCode);

// The voucher of a bill in words, for the details of a message: its numbers, and who has posted it. Empty if there is none, or it
// can't be read.
QString voucherInWords(Session& session, const QString& billCode);

// Deletes the voucher that a voided bill had: the header first.
void deleteVoidedVoucher(Session& session, const QString& voucherCode);

// Removes the voucher of a bill, posted or not. Silent if there is none.
void DeleteVoucher(Session& session, const QString& billCode);

} // namespace Vouchers
