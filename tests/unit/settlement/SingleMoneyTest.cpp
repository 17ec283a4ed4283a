#include "settlement/SingleMoney.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

// Seven digits are all that an amount has; within them no difference leaves a speck.
TEST(SingleMoney, DifferencesAreThoseOfSevenDigits)
{
  struct Row {
    float due, others, amount;
    const char* open;
  };
  const Row rows[] = {
      {850, 300, 0, "550"},       {8600.3F, 1200.1F, 7400.2F, "0"}, {0.3F, 0.1F, 0.2F, "0"},        {500, 600, 0, "-100"},
      {100, 0, 100.01F, "-0.01"}, {123456.78F, 0, 123456.78F, "0"}, {1234567.89F, 0, 0, "1234568"}, {20000000, 0, 1, "19999999"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(SingleMoney::difference(row.due, {row.others, row.amount}), row.open);
}
