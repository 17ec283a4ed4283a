#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>

// Runs all unit tests in one process, without a display, and ends with the line that ./test adds up.
int main(int argc, char** argv)
{
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  const int status = RUN_ALL_TESTS();
  const testing::UnitTest& tests = *testing::UnitTest::GetInstance();
  std::printf("%d passed, %d failed\n", tests.successful_test_count(), tests.failed_test_count());
  return status;
}
