#include "ledger/AccountingCalendar.h"

#include "platform/RunTimeError.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace ModFuntion;

namespace {

struct CalendarTest : testing::Test, AccountSetFixture {
  void endMonths(const QString& rows) { file.run("delete from TabAccountAreaSet; insert into TabAccountAreaSet values" + rows); }

  QString monthOf(const char* day)
  {
    const QDate date = QDate::fromString(day, Qt::ISODate);
    return QString("%1-%2").arg(GetAccountingYear(session, date)).arg(GetAccountingMonth(session, date));
  }
  QString period(int year, int month)
  {
    return GetPeriodStartDate(session, year, month).toString(Qt::ISODate) + ' ' +
           GetPeriodEndDate(session, year, month).toString(Qt::ISODate);
  }
};

} // namespace

TEST_F(CalendarTest, MonthsEndWithTheCalendarsOrOnTheSettledDay)
{
  EXPECT_EQ(period(2022, 3), "2022-03-01 2022-03-31");
  EXPECT_EQ(period(2024, 2), "2024-02-01 2024-02-29");
  EXPECT_EQ(monthOf("2022-03-01") + " " + monthOf("2022-12-31"), "2022-3 2022-12");

  endMonths("(1,25),(2,25),(3,25),(4,25),(12,25)");
  EXPECT_EQ(period(2022, 1), "2021-12-26 2022-01-25");
  for (const auto& [day, month] : {std::pair{"2022-03-25", "2022-3"},
                                   {"2022-03-26", "2022-4"},
                                   {"2021-12-25", "2021-12"},
                                   {"2021-12-26", "2022-1"},
                                   {"2022-01-01", "2022-1"}})
    EXPECT_EQ(monthOf(day), month) << day;

  endMonths("(2,20)");
  EXPECT_EQ(period(2022, 2), "2022-02-01 2022-02-20");
  EXPECT_EQ(period(2022, 3), "2022-02-21 2022-03-31");
  EXPECT_EQ(monthOf("2022-02-21") + " " + monthOf("2022-01-31"), "2022-3 2022-1");

  EXPECT_EQ(monthOf(""), "0-0");
  endMonths("(2,31)");
  EXPECT_THROW(GetPeriodEndDate(session, 2022, 2), RunTimeError);
  EXPECT_THROW(monthOf("2022-03-01"), RunTimeError);
}

TEST_F(CalendarTest, ADateIsClosedUpToTheLastClosing)
{
  const auto isClosed = [this](const QDate& date, bool showMessage = false) { return GetClosingGuard(session, date, showMessage); };
  EXPECT_FALSE(isClosed(QDate(1999, 1, 1)));
  file.run("insert into TabTurnDay values('2022-06-08'),('2022-6-1'),(null)");
  EXPECT_TRUE(isClosed(QDate(2022, 6, 8)));
  EXPECT_FALSE(isClosed(QDate(2022, 6, 9)));
  file.run("insert into TabTurn values('2022-06-30')");
  EXPECT_TRUE(isClosed(QDate(2022, 6, 30)));
  EXPECT_FALSE(isClosed(QDate(2022, 7, 1), true));
  EXPECT_EQ(desk.takeTexts(), "");
}

TEST_F(CalendarTest, VoucherNumbersRunByBookAndPeriod)
{
  file.run("insert into TabWarrant(Code,Datee,WarrantNum1,AccountBook1,WarrantNum2,AccountBook2) values"
           "('a','2022-06-01',4,1,9,0),('b','2022-6-30',7,1,2,1),('c','2022-05-31',50,1,50,1),('d','2022-07-01',60,1,60,1)");
  const auto next = [this](int book) { return GetNextWarrantNum(session, QDate(2022, 6, 1), QDate(2022, 6, 30), book); };
  for (const bool isAccess : {true, false}) {
    session.params.IsAccessSQL = isAccess;
    EXPECT_EQ(next(1), 8);
    EXPECT_EQ(next(2), 3);
    EXPECT_EQ(next(3), 1);
  }
  file.run("update TabWarrant set WarrantNum1=32767 where Code='a'");
  EXPECT_THROW(next(1), RunTimeError);
}
