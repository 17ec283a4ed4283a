#include <QCoreApplication>

#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
