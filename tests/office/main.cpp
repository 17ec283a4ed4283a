#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>

// The office's profile is made anew for each run of the tests: its first start is the slow one.
int main(int argc, char** argv)
{
  QCoreApplication application(argc, argv);
  const QTemporaryDir cache;
  qputenv("XDG_CACHE_HOME", cache.path().toUtf8());
  qunsetenv("DISPLAY");
  qunsetenv("WAYLAND_DISPLAY");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
