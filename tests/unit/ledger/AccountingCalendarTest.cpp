#include "ledger/AccountingCalendar.h"

#include "platform/RunTimeError.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace ModFuntion;

namespace {

struct CalendarTest : testing::Test, AccountSetFixture {
  void endMonthsOn(int day)
  {
    for (int month = 1; month <= 12; ++month)
      endMonthOn(month, day);
  }
  void endMonthOn(int month, int day) { file.run(u"insert into TabAccountAreaSet values(%1,%2)"_s.arg(month).arg(day)); }

  QString monthOf(int year, int month, int day)
  {
    const QDate date(year, month, day);
    return u"%1-%2"_s.arg(GetAccountingYear(session, date)).arg(GetAccountingMonth(session, date));
  }
  QString period(int year, int month)
  {
    return GetPeriodStartDate(session, year, month).toString(Qt::ISODate) + u' ' +
           GetPeriodEndDate(session, year, month).toString(Qt::ISODate);
  }
};

} // namespace

TEST_F(CalendarTest, WithoutSettingsMonthsAreTheCalendars)
{
  EXPECT_EQ(period(2022, 3), u"2022-03-01 2022-03-31"_s);
  EXPECT_EQ(period(2024, 2), u"2024-02-01 2024-02-29"_s);
  EXPECT_EQ(monthOf(2022, 3, 1), u"2022-3"_s);
  EXPECT_EQ(monthOf(2022, 12, 31), u"2022-12"_s);
}

TEST_F(CalendarTest, MonthsEndOnTheSettledDay)
{
  endMonthsOn(25);
  EXPECT_EQ(period(2022, 1), u"2021-12-26 2022-01-25"_s);
  EXPECT_EQ(monthOf(2022, 3, 25), u"2022-3"_s);
  EXPECT_EQ(monthOf(2022, 3, 26), u"2022-4"_s);
  EXPECT_EQ(monthOf(2021, 12, 25), u"2021-12"_s);
  EXPECT_EQ(monthOf(2021, 12, 26), u"2022-1"_s);
  EXPECT_EQ(monthOf(2022, 1, 1), u"2022-1"_s);
}

TEST_F(CalendarTest, AMonthMayEndOnItsOwnDayAlone)
{
  endMonthOn(2, 20);
  EXPECT_EQ(period(2022, 2), u"2022-02-01 2022-02-20"_s);
  EXPECT_EQ(period(2022, 3), u"2022-02-21 2022-03-31"_s);
  EXPECT_EQ(monthOf(2022, 2, 21), u"2022-3"_s);
  EXPECT_EQ(monthOf(2022, 1, 31), u"2022-1"_s);
}

TEST_F(CalendarTest, NoDateHasNoMonthAndAnImpossibleDayIsAnError)
{
  EXPECT_EQ(GetAccountingMonth(session, {}), 0);
  EXPECT_EQ(GetAccountingYear(session, {}), 0);
  endMonthOn(2, 31);
  EXPECT_THROW(GetPeriodEndDate(session, 2022, 2), RunTimeError);
  EXPECT_THROW(GetAccountingMonth(session, QDate(2022, 3, 1)), RunTimeError);
}

TEST_F(CalendarTest, TheLastDayOfAMonth)
{
  endMonthOn(2, 25);
  struct Row {
    int month, day;
  };
  for (const auto& [month, day] : {Row{2, 25}, Row{4, 30}, Row{12, 31}, Row{0, 31}, Row{15, 31}})
    EXPECT_EQ(GetPeriodEndDay(session, month, 2022), day) << month;
}

TEST_F(CalendarTest, ADateIsClosedUpToTheLastClosing)
{
  const auto closed = [this](const QDate& date) { return GetClosingGuard(session, date, false); };
  EXPECT_FALSE(closed(QDate(1999, 1, 1)));
  file.run(u"insert into TabTurnDay values('2022-06-08'),('2022-6-1'),(null)"_s);
  EXPECT_TRUE(closed(QDate(2022, 6, 8)));
  EXPECT_FALSE(closed(QDate(2022, 6, 9)));
  file.run(u"insert into TabTurn values('2022-06-30')"_s);
  EXPECT_TRUE(closed(QDate(2022, 6, 30)));
  EXPECT_EQ(desk.takeTexts(), u""_s);

  EXPECT_TRUE(GetClosingGuard(session, QDate(2022, 6, 30), true));
  EXPECT_EQ(desk.takeTexts(), u"今天已结转，禁止当前操作！"_s);
  EXPECT_FALSE(GetClosingGuard(session, QDate(2022, 7, 1), true));
  EXPECT_EQ(desk.takeTexts(), u""_s);
}

TEST_F(CalendarTest, VoucherNumbersRunByBookAndPeriod)
{
  file.run(u"insert into TabWarrant(Code,Datee,WarrantNum1,AccountBook1,WarrantNum2,AccountBook2) values"
           "('a','2022-06-01',4,1,9,0),('b','2022-6-30',7,1,2,1),('c','2022-05-31',50,1,50,1),('d','2022-07-01',60,1,60,1)"_s);
  const auto next = [this](int book) {
    QStringList texts;
    for (const bool isAccess : {true, false}) {
      session.params.IsAccessSQL = isAccess;
      texts.append(QString::number(GetNextWarrantNum(session, QDate(2022, 6, 1), QDate(2022, 6, 30), book)));
    }
    return texts.join(u' ');
  };
  EXPECT_EQ(next(1), u"8 8"_s);
  EXPECT_EQ(next(2), u"3 3"_s);
  EXPECT_EQ(next(3), u"1 1"_s);
  file.run(u"update TabWarrant set WarrantNum1=32767 where Code='a'"_s);
  EXPECT_THROW(next(1), RunTimeError);
}
