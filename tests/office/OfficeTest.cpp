#include "OfficeClient.h"

#include "spreadsheet/office/EnteredText.h"
#include "spreadsheet/office/Office.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace std::chrono_literals;

// An office that has stopped answering is ended when the limit is over, and started anew.
TEST(Office, IsNotWaitedForWithoutEnd)
{
  Office office(2s);
  const std::unique_ptr<Workbook> workbook = office.create();
  OfficeClient::kill(SIGSTOP);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_THROW(workbook->sheetNames(), RunTimeError);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 20s);
  EXPECT_EQ(office.create()->sheetNames().size(), 1);
}

// Now and then the program writes to an office that has died before it has noticed.
TEST(Office, IsAtWorstAnErrorWhenItDies)
{
  Office office;
  office.create();
  std::raise(SIGPIPE);
}

// The second office has a profile of its own, and ending it leaves the first one alone.
TEST(Office, SharesNothingWithAnotherProgram)
{
  Office first;
  const std::unique_ptr<Workbook> workbook = first.create();
  workbook->enterTexts(workbook->sheetNames().first(), 1, 1, {{"甲"}});
  {
    Office second;
    EXPECT_EQ(second.create()->texts("工作表1", 1, 1), QList<QStringList>{{""}});
  }
  EXPECT_EQ(workbook->texts("工作表1", 1, 1), QList<QStringList>{{"甲"}});
  EXPECT_THROW(workbook->texts("别的", 1, 1), RunTimeError);
}

TEST(EnteredText, IsANumberWhereItKeepsItsDigits)
{
  const struct {
    const char* text;
    std::optional<double> number;
  } rows[] = {
      {"0", 0},
      {"1001", 1001},
      {"-5.00", -5},
      {"1,234.50", 1234.5},
      {"1,234,567", 1234567},
      {"0.07", 0.07},
      {"999999999999999", 999999999999999},
      {"0012", {}},
      {"12,34", {}},
      {"1234,567", {}},
      {"6222021234567890123", {}},
      {"1e5", {}},
      {"12%", {}},
      {"2022-06-08", {}},
      {"=1", {}},
      {"１２", {}},
      {"1.", {}},
      {"", {}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(enteredNumber(row.text), row.number) << row.text;
}
