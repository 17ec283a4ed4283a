#pragma once

#include "vouchers/VoucherLines.h"

#include <QDate>
#include <QString>

#include <array>
#include <optional>

class Recordset;
struct Session;

// The settings of the account set for the vouchers of a kind of bill: books and type.
namespace Vouchers {

// The books of a voucher. A voucher can belong to several at once, with a number in each.
struct VoucherBooks {
  std::array<qint16, BookCount> WarrantNum = {};
  std::array<qint16, BookCount> AccountBook = {};
  std::array<qint16, BookCount> AffixNum = {};
};

struct VoucherSettings {
  VoucherBooks books;
  QString WarrantType; // never empty
  QString Zi;          // the short name of the type, never empty
};

// True if a row of the settings says that its kind of bill has no voucher.
bool declinesVoucher(const Recordset& settings);

// The settings for a kind of bill, with a fresh number in each book, counted over the vouchers of the
// period. Nothing if the kind has no voucher; a kind without settings gets one in the main book.
std::optional<VoucherSettings> drawVoucherSettings(Session& session, const QString& JXCTabName, const QDate& periodStart,
                                                   const QDate& periodEnd);

} // namespace Vouchers
