#pragma once

#include <QDate>
#include <QString>

#include <optional>

struct Session;

// Accounting months need not end with the calendar's: TabAccountAreaSet tells the last day of each.
// So a date near a month's end may belong to the next month, and one in late December to the next
// year. Dates are values; years and months are texts that hold the number. A setting that makes a
// day that does not exist throws RunTimeError.
namespace ModFuntion {

// First and last date of the accounting period that carries this number.
QDate GetPeriodStartDate(Session& session, const QString& year, const QString& month);
QDate GetPeriodEndDate(Session& session, const QString& year, const QString& month);

// The accounting month ("1" to "12") and year into which a date falls; empty for no date.
QString GetAccountingMonth(Session& session, const QDate& date);
QString GetAccountingYear(Session& session, const QDate& date);

// Day of the month on which the accounting month ends. A month below 1 counts as 1, one above 12 as
// 12; a blank year is today's.
QString GetPeriodEndDay(Session& session, const QString& month, const QString& year);
// The last calendar day of the month, from no table; empty for a month of 0 or less.
QString LastDayOfMonth(const Session& session, const QString& month, const QString& year);

// The last date in a table of closings (TabTurn, TabTurnDay); nothing if it has none. A text that is not a date is
// no closing.
std::optional<QDate> LastClosing(Session& session, const char* table);

// True if the date is closed: the last stock closing or the last daily closing is on or after it.
// Says so to the operator if asked to.
bool GetClosingGuard(Session& session, const QDate& date, bool showMessage);

// The next voucher number of a book (1 to 3) within a period, from the vouchers that belong to it.
// Numbers have sixteen bits; RunTimeError (overflow) behind the last.
qint16 GetNextWarrantNum(Session& session, const QDate& periodStart, const QDate& periodEnd, int book);

} // namespace ModFuntion
