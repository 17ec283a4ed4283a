#include "OfficeClient.h"

#include "spreadsheet/office/EnteredText.h"
#include "spreadsheet/office/Office.h"
#include "spreadsheet/office/OfficeInstance.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <csignal>

#include <QDir>
#include <QFile>

using namespace std::chrono_literals;

// An office that has stopped answering is ended after the time limit, and started again.
TEST(Office, IsNotWaitedForWithoutEnd)
{
  Office office(10s); // long enough to start one on a busy machine
  const std::unique_ptr<Workbook> workbook = orThrow(office.create());
  OfficeClient::kill(SIGSTOP);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(workbook->sheetNames());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 60s);
  EXPECT_EQ(orThrow(orThrow(office.create())->sheetNames()).size(), 1);
}

// The program may write to an office that has just died. Temporary files of an earlier one do not pile up.
TEST(Office, IsAtWorstAnErrorWhenItDiesAndLeavesNoFiles)
{
  const QString temporary = OfficeInstance::numbered(1).temporaryFolder();
  QFile left(temporary + "/left");
  EXPECT_TRUE(QDir().mkpath(temporary) && left.open(QIODevice::WriteOnly));
  Office office;
  orThrow(office.create());
  EXPECT_FALSE(left.exists());
  std::raise(SIGPIPE);
}

// The second office has a profile of its own, and ending it leaves the first one alone.
TEST(Office, SharesNothingWithAnotherProgram)
{
  Office first;
  const std::unique_ptr<Workbook> workbook = orThrow(first.create());
  orThrow(workbook->enterTexts(orThrow(workbook->sheetNames()).first(), 1, 1, {{"甲"}}));
  {
    Office second;
    EXPECT_EQ(orThrow(orThrow(second.create())->texts("工作表1", 1, 1)), QList<QStringList>{{""}});
  }
  EXPECT_EQ(orThrow(workbook->texts("工作表1", 1, 1)), QList<QStringList>{{"甲"}});
  EXPECT_EQ(workbook->texts("别的", 1, 1).error().number(), RunTimeError::OutOfBounds);
}

TEST(EnteredText, IsANumberWhereItKeepsItsDigits)
{
  const std::pair<const char*, std::optional<double>> rows[] = {{"0", 0},
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
                                                                {"", {}}};
  for (const auto& [text, number] : rows)
    EXPECT_EQ(enteredNumber(text), number) << text;
}
