#pragma once

#include <QString>

struct Session;

// Opens accounting data of a bill, in the program that maintains them.
namespace Vouchers {

// The voucher of the bill on screen, or a message why there is none. For the tool button ToolSeeWarrent; the menu
// asks for the right first.
void ShowVoucher(Session& session, const QString& billCode);
void FSeeWarrent_Click(Session& session, const QString& billCode);

// The voucher settings of this kind of bill.
void FJXCAccount_Click(Session& session, const QString& JXCTabName);

} // namespace Vouchers
