#pragma once

#include <QString>

#include <optional>

struct Session;

// The accounting voucher of a saved bill: derived from it at every save, found by it (JXCBillCode),
// never edited here. One row of TabWarrant and its lines. A failed statement has shown its box and
// the next one runs, as everywhere: a header without lines can remain.
namespace Vouchers {

struct VoucherBill;

// Writes the voucher of a bill that has just been saved, or writes it anew under the code and the
// numbers it had, and marks the bill. A bill dated in a closed accounting period gets a message and
// keeps the voucher it has; a bill that wants no voucher is marked all the same.
void GenerateVoucher(Session& session, const VoucherBill& bill);

// The voucher of a bill.
struct StoredVoucher {
  QString code;
  bool isPosted;
};
// Nothing if the bill is not stored or has none.
std::optional<StoredVoucher> voucherOf(Session& session, const QString& billCode);

// Deletes the voucher that a voided bill had: the header first.
void deleteVoidedVoucher(Session& session, const QString& voucherCode);

// Removes the voucher of a bill, posted or not. Silent if there is none.
void DeleteVoucher(Session& session, const QString& billCode);

} // namespace Vouchers
