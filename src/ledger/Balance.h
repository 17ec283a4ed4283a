#pragma once

#include "platform/Currency.h"

#include <QDate>
#include <QString>

struct Session;

// What a trading partner owes at a date: his last closed balance and every movement since, over all
// bills of the program family and the vouchers made by hand. Nothing of it is stored. A partner may
// buy and sell; the two sides are netted.
namespace ModFuntion {

// The balance, positive if the partner owes us: in one currency, as its amounts stand; with "综合本位币" in all of them, each by its
// rate; with a blank name in all of them as they stand. `auditedOnly` leaves out what nobody audited
// (see IsAuditedOnly). A statement that fails has shown its box, and its figures count 0.
Currency GetOutstandingBalance(Session& session, const QString& code, const QDate& date, const QString& moneyName, bool auditedOnly);

// True if the partner's account of this kind ("应收", "预收", "应付", "预付") is kept by partners.
bool IsClientAccountWLHS(Session& session, const QString& code, const QString& kind);

} // namespace ModFuntion
