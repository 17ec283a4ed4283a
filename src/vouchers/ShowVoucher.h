#pragma once

#include <QString>

struct Session;

// What a bill screen opens of the accounting side, each in the program that keeps it.
namespace Vouchers {

// The voucher of the bill on screen, or the message why there is none to see. For the tool button
// ToolSeeWarrent; the menu asks for the right first.
void ShowVoucher(Session& session, const QString& billCode);
void FSeeWarrent_Click(Session& session, const QString& billCode);

// The voucher settings of this kind of bill.
void FJXCAccount_Click(Session& session, const QString& JXCTabName);

} // namespace Vouchers
