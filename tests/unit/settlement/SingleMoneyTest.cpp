#include "settlement/SingleMoney.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

// An amount has seven digits; within them no difference leaves a residue.
TEST(SingleMoney, DifferencesAreThoseOfSevenDigits)
{
  const struct {
    float due, others, amount;
    const char* open;
  } rows[] = {
      {850, 300, 0, "550"},       {8600.3F, 1200.1F, 7400.2F, "0"}, {0.3F, 0.1F, 0.2F, "0"},        {500, 600, 0, "-100"},
      {100, 0, 100.01F, "-0.01"}, {123456.78F, 0, 123456.78F, "0"}, {1234567.89F, 0, 0, "1234568"}, {20000000, 0, 1, "19999999"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(SingleMoney::difference(row.due, {row.others, row.amount}), row.open);
}
