#include "PaymentScreen.h"

#include "startup/ModReadWriteParameters.h"

#include <QFile>
#include <QProcess>

#include <benchmark/benchmark.h>

#include <chrono>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// From process start to the payment screen painted and ready, beside a bare window with as many widgets
// and five small queries; and the peak memory of both.

namespace {

// A program folder with the sample firm and the program that ends once its screen is painted.
class ProgramFolder {
public:
  ProgramFolder() : m_accountSet(PaymentScreen::freshAccountSet(m_folder))
  {
    if (link(PROGRAM_FOLDER "/start-program", qPrintable(program())) != 0)
      qFatal("cannot link the program");
    order();
    QProcess counting;
    counting.start(program(), {QStringLiteral("count")});
    counting.waitForFinished();
    m_widgets = counting.readAllStandardOutput().trimmed();
  }

  QString program() const { return m_folder.filePath(QStringLiteral("start-program")); }
  QString accountSet() const { return m_accountSet; }
  QByteArray widgets() const { return m_widgets; }

  // The parameter file of the next start, a new payment.
  void order() const
  {
    QFile file(m_folder.filePath(QString::fromLatin1(ModReadWriteParameters::FileName)));
    if (!file.open(QIODevice::WriteOnly))
      qFatal("cannot write the order");
    file.write(*ModReadWriteParameters::fileContent({{QStringLiteral("DatabaseType"), QStringLiteral("Access")},
                                                     {QStringLiteral("ConDataName"), QStringLiteral("A001.mdb")},
                                                     {QStringLiteral("UserName"), QStringLiteral("系统管理员")},
                                                     {QStringLiteral("OperateDate"), QStringLiteral("2022-06-08")},
                                                     {QStringLiteral("OperationsDirective"), QStringLiteral("付款")}}));
  }

private:
  QTemporaryDir m_folder{"benchmarks-XXXXXX"};
  QString m_accountSet;
  QByteArray m_widgets;
};

const ProgramFolder& programFolder()
{
  static const ProgramFolder Folder;
  return Folder;
}

// Runs a program to its end and records its time and its peak memory.
void run(benchmark::State& state, std::vector<QByteArray> words)
{
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (QByteArray& word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  pid_t process = 0;
  int status = 0;
  rusage usage = {};
  if (posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0 || wait4(process, &status, 0, &usage) < 0 ||
      status != 0)
    qFatal("%s did not run", arguments[0]);
  state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  state.counters["peakMB"] = double(usage.ru_maxrss) / 1024;
}

void startProgram(benchmark::State& state)
{
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    programFolder().order();
    run(state, {programFolder().program().toUtf8()});
  }
}

void startBaseline(benchmark::State& state)
{
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    run(state, {PROGRAM_FOLDER "/start-baseline", programFolder().widgets(), programFolder().accountSet().toUtf8()});
  }
}

} // namespace

BENCHMARK(startProgram)->Name("Start/program")->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(startBaseline)->Name("Start/baseline")->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
