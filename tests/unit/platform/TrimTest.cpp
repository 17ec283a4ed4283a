#include "platform/Trim.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

TEST(Trim, CutsBlanksAndNothingElse)
{
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
  EXPECT_EQ(Trim(u"   "), u"");
  EXPECT_EQ(Trim(u"\ta\n"), u"\ta\n");
  EXPECT_EQ(Trim(u"　全角　"), u"　全角　");
}
