#pragma once

#include "platform/Currency.h"

#include <QDate>
#include <QString>

struct Session;

// What a trading partner owes at a date: the last closed balance and every movement since, over all bills of the
// suite and the manual vouchers. It is never stored. A partner may buy and sell; the two sides are netted.
namespace ModFuntion {

// The balance, positive if the partner owes us: in one currency, unconverted; with "综合本位币" in all of them, converted
// by their rates; with an empty name in all of them, unconverted. `auditedOnly` leaves out unaudited bills (see
// IsAuditedOnly). A statement that fails shows its box, and its figures count as 0.
Currency GetOutstandingBalance(Session& session, const QString& code, const QDate& date, const QString& moneyName, bool auditedOnly);

// True if the partner's account of this kind ("应收", "预收", "应付", "预付") has partner accounting.
bool IsClientAccountWLHS(Session& session, const QString& code, const QString& kind);

} // namespace ModFuntion
