#include "ScriptProcess.h"

#include "Player.h"
#include "desktop/Appearance.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <atomic>
#include <csignal>
#include <cstring>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ScriptProcess {
namespace {

// How long one directive may take.
constexpr int PatienceMs = 60'000;

// What the playing process reports, in memory that both processes share.
struct Report {
  std::atomic<int> line;    // of the directive being played
  std::atomic<bool> isOver; // the rest is valid
  Outcome outcome;
  char reason[0x10000]; // UTF-8, cut if it is longer
};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

bool isMeant(const Script& script, const Task& task)
{
  switch (script.playedFor) {
  case Script::For::Everywhere: return true;
  case Script::For::ViewModelOnly: return !task.desktop;
  case Script::For::DesktopOnly: return task.desktop;
  case Script::For::FileOnly: return !task.server;
  }
  return true;
}

Result playHere(const Task& task, Report& report)
{
  QFile file(task.script);
  if (!file.open(QIODevice::ReadOnly))
    return {Outcome::Failed, 0, QStringLiteral("cannot read the script")};
  try {
    const Script script = Script::read(file.readAll());
    if (!isMeant(script, task))
      return {Outcome::Skipped};
    Environment environment(task.programFolder, task.server ? ScriptAccountSet::onServer(*task.server)
                                                            : ScriptAccountSet::inFile(task.programFolder, task.shelf));
    Player player(
        script, environment,
        {task.desktop ? Driver::ofWindows : Driver::ofModels, task.pictureFolder, [&](int line) { report.line = line; }, task.atRest});
    const Player::Verdict verdict = player.play();
    return {verdict.failedLine == 0 ? Outcome::Passed : Outcome::Failed, verdict.failedLine, verdict.reason};
  } catch (const ScriptError& error) {
    return {Outcome::Failed, error.line, QString::fromUtf8(error.what())};
  } catch (const std::exception& error) {
    return {Outcome::Failed, 0, QString::fromUtf8(error.what())};
  }
}

// Without a display the window system warns at every window.
void passOn(QtMsgType, const QMessageLogContext&, const QString& message)
{
  if (!message.startsWith(u"This plugin does not support"))
    std::fprintf(stderr, "%s\n", message.toUtf8().constData());
}

// The office suite gets no display and a profile of its own.
[[noreturn]] void playAndExit(const Task& task, Report& report)
{
  qunsetenv("DISPLAY");
  qunsetenv("WAYLAND_DISPLAY");
  qputenv("XDG_CACHE_HOME", task.shelf.toLocal8Bit());
  const Result result = playHere(task, report);
  report.line = result.line;
  report.outcome = result.outcome;
  qstrncpy(report.reason, QString(result.reason).replace(u'\n', u' ').toUtf8().constData(), sizeof report.reason);
  report.isOver = true;
  std::fflush(nullptr);
  _exit(0);
}

const QString OffScreen = QStringLiteral("offscreen");

// The platform without a display. Its own screen is too small for the windows.
QByteArray wideScreen(const QString& shelf)
{
  QFile file(QDir(shelf).filePath(QStringLiteral("screen.json")));
  if (!file.open(QIODevice::WriteOnly))
    return OffScreen.toLatin1();
  file.write(R"({"screens":[{"name":"wide","x":0,"y":0,"width":1920,"height":1080,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})");
  return "offscreen:configfile=" + file.fileName().toLocal8Bit();
}

[[noreturn]] void runChild(const Task& task, Report& report)
{
  int count = 1;
  char name[] = "operator";
  char* texts[] = {name, nullptr};
  if (task.desktop) {
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (qEnvironmentVariable("QT_QPA_PLATFORM", hasDisplay ? QString() : OffScreen) == OffScreen)
      qputenv("QT_QPA_PLATFORM", wideScreen(task.shelf));
    // Qt would warn at every script.
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
      qputenv("XDG_RUNTIME_DIR", task.shelf.toLocal8Bit());
    qInstallMessageHandler(passOn);
    const QApplication application(count, texts);
    Appearance::apply();
    // The program may end and be started again in one script.
    QApplication::setQuitOnLastWindowClosed(false);
    playAndExit(task, report);
  }
  const QCoreApplication application(count, texts);
  playAndExit(task, report);
}

// False if one directive takes too long.
bool waitForEnd(pid_t child, const Report& report, int& status)
{
  QElapsedTimer waiting;
  waiting.start();
  for (int line = 0; waitpid(child, &status, WNOHANG) == 0; QThread::msleep(1)) {
    if (const int now = report.line; now != line) {
      line = now;
      waiting.restart();
    } else if (waiting.hasExpired(PatienceMs)) {
      return false;
    }
  }
  return true;
}

QString endingOf(int status)
{
  if (WIFSIGNALED(status))
    return QStringLiteral("the program crashed: %1").arg(QString::fromLocal8Bit(strsignal(WTERMSIG(status))));
  return QStringLiteral("the program ended the player with status %1").arg(WEXITSTATUS(status));
}

Result playIn(const Task& task, Report& report)
{
  const pid_t child = fork();
  if (child == 0)
    runChild(task, report);
  int status = 0;
  if (child < 0 || !waitForEnd(child, report, status)) {
    if (child > 0 && kill(child, SIGKILL) == 0)
      waitpid(child, &status, 0);
    return {Outcome::Failed, report.line, QStringLiteral("expected this to end, hung for %1 seconds").arg(PatienceMs / 1000)};
  }
  if (report.isOver)
    return {report.outcome, report.line, QString::fromUtf8(report.reason)};
  return {Outcome::Failed, report.line, endingOf(status)};
}

} // namespace

Result play(const Task& task)
{
  void* const memory = mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED)
    return {Outcome::Failed, 0, QStringLiteral("cannot share memory")};
  const Result result = playIn(task, *new (memory) Report{});
  munmap(memory, sizeof(Report));
  return result;
}

} // namespace ScriptProcess
