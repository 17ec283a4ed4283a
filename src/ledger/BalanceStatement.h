#pragma once

#include "database/Statement.h"

#include <QDate>
#include <QString>

struct Session;

namespace ModFuntion {

// The parameters of the movements of a balance.
struct MovementQuery {
  QString code;
  QDate lastClosing; // the movements begin on the day after
  QDate date;        // and end on this day
  QString moneyName;
  bool auditedOnly = false;
  QString book = QStringLiteral("1"); // the main account book
};

// One statement for all movements of a partner between two days, over every table that affects what the partner owes.
// It returns one row of six sums: SumMoneyy, SumCashh, SumCreditt of the sales side, and the same with "_G" of the
// purchase side. A sum is null if nothing moved.
Statement movementStatement(Session& session, const MovementQuery& query);

// The column of TabClient that names the partner's account of a kind ("应收", "预收", "应付",
// "预付"); empty for any other kind.
QString partnerAccountColumn(const QString& kind);

} // namespace ModFuntion
