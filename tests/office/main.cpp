#include <gtest/gtest.h>

#include "OfficeDeath.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

// Each run of the tests has a new profile of the office, whose first start is slow. Ends with the line that ./test
// adds up.
int main(int argc, char** argv)
{
  QCoreApplication application(argc, argv);
  if (argc == 3 && argv[1] == holdOffice)
    return hold(argv[2]);
  const QTemporaryDir cache;
  qputenv("XDG_CACHE_HOME", cache.path().toUtf8());
  qunsetenv("DISPLAY");
  qunsetenv("WAYLAND_DISPLAY");
  testing::InitGoogleTest(&argc, argv);
  const int status = RUN_ALL_TESTS();
  const testing::UnitTest& tests = *testing::UnitTest::GetInstance();
  std::printf("%d passed, %d failed\n", tests.successful_test_count(), tests.failed_test_count());
  return status;
}
