#include "ledger/AccountingCalendar.h"

#include "platform/DateText.h"
#include "platform/RunTimeError.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace ModFuntion {
namespace {

// A text that is not a date sorts after all dates.
const QDate LastOfAllDays(9999, 12, 31);

// The day on which an accounting month ends by the settings.
std::optional<int> settledEndDay(Session& session, int month)
{
  const Recordset rs = OpenRecordset(session, {u"select * from TabAccountAreaSet where DateeM={} ", SqlNumber(month)});
  return rs.eof() ? std::nullopt : std::optional(int(rs.field("DateeD").toInteger()));
}

QDate endOfPeriod(Session& session, int year, int month)
{
  return DateText::build(year, month, settledEndDay(session, month).value_or(QDate(year, month, 1).daysInMonth()));
}

QDate endOfPeriodBefore(Session& session, int year, int month)
{
  if (month - 1 >= 1)
    return endOfPeriod(session, year, month - 1);
  return DateText::build(year - 1, 12, settledEndDay(session, 12).value_or(31));
}

// The period of a date relative to its calendar month: -1 the one before, 0 its own, 1 the next.
int periodShift(Session& session, const QDate& date)
{
  if (endOfPeriodBefore(session, date.year(), date.month()) >= date)
    return -1;
  return endOfPeriod(session, date.year(), date.month()) < date ? 1 : 0;
}

QString closingsOnOrAfter(Session& session, const QDate& date)
{
  QStringList closings;
  const auto add = [&](const char* table, const QString& name) {
    const Recordset rs = LookUp(session, lastClosingQuery(session, table, LastOfAllDays));
    if (const auto closing = rs.eof() ? std::nullopt : DateText::parse(rs.text("Datee")); closing && *closing >= date)
      closings.append(name + u"已结转到 "_s + DateText::shortForm(*closing));
  };
  add("TabTurn", u"库存"_s);
  add("TabTurnDay", u"日结"_s);
  return closings.isEmpty() ? QString()
                            : u"单据日期为 "_s + DateText::shortForm(date) + u"，"_s + closings.join(u"，"_s) +
                                  u"。\n请改用此后的日期，或先在账务中反结转。"_s;
}

bool isClosedBy(Session& session, const char* table, const QDate& date)
{
  const auto closing = LastClosing(session, table);
  return closing && *closing >= date;
}

} // namespace

QDate GetPeriodStartDate(Session& session, int year, int month)
{
  return endOfPeriodBefore(session, year, month).addDays(1);
}

QDate GetPeriodEndDate(Session& session, int year, int month)
{
  return endOfPeriod(session, year, month);
}

int GetAccountingMonth(Session& session, const QDate& date)
{
  if (!date.isValid())
    return 0;
  const int month = date.month() + periodShift(session, date);
  return month < 1 ? 12 : month > 12 ? 1 : month;
}

int GetAccountingYear(Session& session, const QDate& date)
{
  if (!date.isValid())
    return 0;
  const int month = date.month() + periodShift(session, date);
  return date.year() + (month < 1 ? -1 : month > 12 ? 1 : 0);
}

int GetPeriodEndDay(Session& session, int month, int year)
{
  const int ofMonth = qBound(1, month, 12);
  return settledEndDay(session, ofMonth).value_or(QDate(year, ofMonth, 1).daysInMonth());
}

Statement lastClosingQuery(const Session& session, const char* table, const QDate& until)
{
  return {u"select max(Datee) as Datee from {}  where Datee<={}", SqlName(table), SqlDialect::date(session, until)};
}

std::optional<QDate> LastClosing(Session& session, const char* table)
{
  const Recordset rs = OpenRecordset(session, lastClosingQuery(session, table, LastOfAllDays));
  return rs.eof() ? std::nullopt : DateText::parse(rs.text("Datee"));
}

Desk::Box ClosedBox(Session& session, const QDate& date)
{
  return {.text = u"今天已结转，禁止当前操作！"_s, .details = [&session, date] { return closingsOnOrAfter(session, date); }};
}

bool GetClosingGuard(Session& session, const QDate& date, bool showMessage)
{
  if (!isClosedBy(session, "TabTurn", date) && !isClosedBy(session, "TabTurnDay", date))
    return false;
  if (showMessage)
    session.desk.ask(ClosedBox(session, date));
  return true;
}

qint16 GetNextWarrantNum(Session& session, const QDate& periodStart, const QDate& periodEnd, int book)
{
  const QString bookText = QString::number(book);
  const Recordset rs = OpenRecordset(session, {u"select Max({}) as WarrantNumm from TabWarrant  where Datee>={}  and  Datee<={} and {}=1 ",
                                               SqlName(u"WarrantNum"_s + bookText), SqlDialect::date(session, periodStart),
                                               SqlDialect::date(session, periodEnd), SqlName(u"AccountBook"_s + bookText)});
  if (rs.eof() || rs.field("WarrantNumm").isNull())
    return 1;
  const std::int64_t next = rs.field("WarrantNumm").toInteger() + 1;
  if (next > std::numeric_limits<qint16>::max())
    throw RunTimeError(RunTimeError::Overflow, u"溢出"_s);
  return qint16(next);
}

} // namespace ModFuntion
