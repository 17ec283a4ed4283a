#include "platform/Trim.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Trim, CutsBlanksAndNothingElse)
{
  EXPECT_EQ(Trim(u"  a b  "), u"a b"_s);
  EXPECT_EQ(Trim(u"   "), u""_s);
  EXPECT_EQ(Trim(u"\ta\n"), u"\ta\n"_s);
  EXPECT_EQ(Trim(u"　全角　"), u"　全角　"_s);
}
