#pragma once

#include "database/Statement.h"
#include "screen/Desk.h"

#include <QDate>

#include <optional>

struct Session;

// Accounting months need not end with calendar months: TabAccountAreaSet holds the last day of each. So a date near a
// month's end may belong to the next month, and one in late December to the next year. A setting of a day that does
// not exist throws RunTimeError.
namespace ModFuntion {

// First and last date of the accounting period with this number.
QDate GetPeriodStartDate(Session& session, int year, int month);
QDate GetPeriodEndDate(Session& session, int year, int month);

// The accounting month (1 to 12) and year into which a date falls; 0 for no date.
int GetAccountingMonth(Session& session, const QDate& date);
int GetAccountingYear(Session& session, const QDate& date);

// Day of the month on which the accounting month ends. A month below 1 counts as 1, one above 12 as 12.
int GetPeriodEndDay(Session& session, int month, int year);

// The last date in a table of closings (TabTurn, TabTurnDay); nothing if it has none. A text that is not a date does
// not count. A failed read throws RunTimeError.
std::optional<QDate> LastClosing(Session& session, const char* table);
// The query for it, as Datee, among the closings up to a day.
Statement lastClosingQuery(const Session& session, const char* table, const QDate& until);

// The refusal of an action on a closed date; its details name the closings.
Desk::Box ClosedBox(Session& session, const QDate& date);
// True if the date is closed: the last stock closing or the last daily closing is on or after it. Shows a message if
// requested.
bool GetClosingGuard(Session& session, const QDate& date, bool showMessage);

// The next voucher number of a book (1 to 3) within a period, from the vouchers that belong to it. Numbers have
// sixteen bits; RunTimeError (overflow) after the last.
qint16 GetNextWarrantNum(Session& session, const QDate& periodStart, const QDate& periodEnd, int book);

} // namespace ModFuntion
