#include "ledger/AccountingCalendar.h"

#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <limits>
#include <optional>

namespace ModFuntion {
namespace {

int numberOf(const QString& text)
{
  return int(qBound(-1.0e6, NumberText::numericPrefix(text), 1.0e6));
}

// The day on which an accounting month ends by the settings.
std::optional<int> settledEndDay(Session& session, int month)
{
  const Recordset rs = OpenRecordset(session, {u"select * from TabAccountAreaSet where DateeM={} ", SqlNumber(month)});
  return rs.eof() ? std::nullopt : std::optional(int(rs.field("DateeD").toInteger()));
}

int lastCalendarDay(const Session& session, int month, const QString& year)
{
  const int ofYear = Trim(year).isEmpty() ? session.machine.today().year() : numberOf(Trim(year));
  return DateText::build(ofYear, month, 1).daysInMonth();
}

QDate endOfPeriod(Session& session, int year, int month)
{
  const auto day = settledEndDay(session, month);
  return DateText::build(year, month, day ? *day : lastCalendarDay(session, month, QString::number(year)));
}

QDate endOfPeriodBefore(Session& session, int year, int month)
{
  if (month - 1 >= 1)
    return endOfPeriod(session, year, month - 1);
  return DateText::build(year - 1, 12, settledEndDay(session, 12).value_or(31));
}

// Which period a date falls into, seen from its calendar month: -1 the one before, 0 its own, 1 the next.
int periodShift(Session& session, const QDate& date)
{
  if (endOfPeriodBefore(session, date.year(), date.month()) >= date)
    return -1;
  return endOfPeriod(session, date.year(), date.month()) < date ? 1 : 0;
}

bool isClosedBy(Session& session, const char* table, const QDate& date)
{
  const auto closing = LastClosing(session, table);
  return closing && *closing >= date;
}

} // namespace

QDate GetPeriodStartDate(Session& session, const QString& year, const QString& month)
{
  return endOfPeriodBefore(session, numberOf(year), numberOf(month)).addDays(1);
}

QDate GetPeriodEndDate(Session& session, const QString& year, const QString& month)
{
  return endOfPeriod(session, numberOf(year), numberOf(month));
}

QString GetAccountingMonth(Session& session, const QDate& date)
{
  if (!date.isValid())
    return {};
  const int month = date.month() + periodShift(session, date);
  return QString::number(month < 1 ? 12 : month > 12 ? 1 : month);
}

QString GetAccountingYear(Session& session, const QDate& date)
{
  if (!date.isValid())
    return {};
  const int month = date.month() + periodShift(session, date);
  return QString::number(date.year() + (month < 1 ? -1 : month > 12 ? 1 : 0));
}

QString GetPeriodEndDay(Session& session, const QString& month, const QString& year)
{
  const int ofMonth = qBound(1, numberOf(month), 12);
  const auto day = settledEndDay(session, ofMonth);
  return QString::number(day ? *day : lastCalendarDay(session, ofMonth, year));
}

QString LastDayOfMonth(const Session& session, const QString& month, const QString& year)
{
  const int ofMonth = numberOf(month);
  return ofMonth <= 0 ? QString() : QString::number(lastCalendarDay(session, qMin(ofMonth, 12), year));
}

std::optional<QDate> LastClosing(Session& session, const char* table)
{
  // A text that is not a date sorts after all dates.
  const QDate lastOfAll(9999, 12, 31);
  const Recordset rs = OpenRecordset(
      session, {u"select max(Datee) as Datee from {}  where Datee<={}", SqlName(table), SqlDialect::date(session, lastOfAll)});
  return rs.eof() ? std::nullopt : DateText::parse(rs.text("Datee"));
}

bool GetClosingGuard(Session& session, const QDate& date, bool showMessage)
{
  if (!isClosedBy(session, "TabTurn", date) && !isClosedBy(session, "TabTurnDay", date))
    return false;
  if (showMessage)
    session.desk.inform(QStringLiteral("今天已结转，禁止当前操作！"));
  return true;
}

qint16 GetNextWarrantNum(Session& session, const QDate& periodStart, const QDate& periodEnd, int book)
{
  const QString bookText = QString::number(book);
  const Recordset rs = OpenRecordset(session, {u"select Max({}) as WarrantNumm from TabWarrant  where Datee>={}  and  Datee<={} and {}=1 ",
                                               SqlName("WarrantNum" + bookText), SqlDialect::date(session, periodStart),
                                               SqlDialect::date(session, periodEnd), SqlName("AccountBook" + bookText)});
  if (rs.eof() || rs.field("WarrantNumm").isNull())
    return 1;
  const std::int64_t next = rs.field("WarrantNumm").toInteger() + 1;
  if (next > std::numeric_limits<qint16>::max())
    throw RunTimeError(RunTimeError::Overflow, QStringLiteral("溢出"));
  return qint16(next);
}

} // namespace ModFuntion
