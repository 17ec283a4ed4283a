#include "ScriptProcess.h"

#include "DesktopStage.h"
#include "ModelStage.h"
#include "Player.h"
#include "desktop/Appearance.h"

#include <QApplication>
#include <QFile>

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ScriptProcess {
namespace {

// How long one directive may take.
constexpr int PatienceMs = 60'000;

// What the playing process tells, a line each: the number of the directive that begins, and at the
// end the outcome.
class Report {
public:
  explicit Report(int descriptor) : m_descriptor(descriptor) {}

  void begins(int line) const { send(QString::number(line)); }
  void ends(const Result& result) const
  {
    const char* const words[] = {"passed", "skipped", "failed"};
    send(QLatin1String(words[int(result.outcome)]) + u' ' + QString::number(result.line) + u' ' +
         QString(result.reason).replace(u'\n', u' '));
  }

private:
  void send(const QString& text) const
  {
    const QByteArray bytes = text.toUtf8() + '\n';
    for (qsizetype sent = 0; sent < bytes.size();) {
      const ssize_t step = write(m_descriptor, bytes.constData() + sent, size_t(bytes.size() - sent));
      if (step <= 0)
        return;
      sent += step;
    }
  }

  int m_descriptor;
};

// Whether the script can be played this way.
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

Result playHere(const Task& task, const Report& report)
{
  QFile file(task.script);
  if (!file.open(QIODevice::ReadOnly))
    return {Outcome::Failed, 0, QStringLiteral("cannot read the script")};
  try {
    const Script script = Script::read(file.readAll());
    if (!isMeant(script, task))
      return {Outcome::Skipped};
    Scene scene(task.programFolder,
                task.server ? AccountSetGround::onServer(*task.server) : AccountSetGround::onFile(task.programFolder, task.shelf));
    const auto makeStage = [&](Encounters& encounters) -> std::unique_ptr<Stage> {
      if (task.desktop)
        return std::make_unique<DesktopStage>(encounters);
      return std::make_unique<ModelStage>(encounters);
    };
    Player player(script, scene, {makeStage, task.pictureFolder, [&](int line) { report.begins(line); }, task.atRest});
    const Player::Verdict verdict = player.play();
    return {verdict.failedLine == 0 ? Outcome::Passed : Outcome::Failed, verdict.failedLine, verdict.reason};
  } catch (const ScriptError& error) {
    return {Outcome::Failed, error.line, QString::fromUtf8(error.what())};
  } catch (const std::exception& error) {
    return {Outcome::Failed, 0, QString::fromUtf8(error.what())};
  }
}

// Without a display the window system says at every window what it cannot do.
void passOn(QtMsgType, const QMessageLogContext&, const QString& message)
{
  if (!message.startsWith(u"This plugin does not support"))
    std::fprintf(stderr, "%s\n", message.toUtf8().constData());
}

// Nobody sits in front of the windows of the spreadsheet program, so it gets none, and a profile of its own.
[[noreturn]] void playAndExit(const Task& task, const Report& report)
{
  qunsetenv("DISPLAY");
  qunsetenv("WAYLAND_DISPLAY");
  qputenv("XDG_CACHE_HOME", task.shelf.toLocal8Bit());
  report.ends(playHere(task, report));
  std::fflush(nullptr);
  _exit(0);
}

[[noreturn]] void runChild(const Task& task, int descriptor)
{
  const Report report(descriptor);
  int count = 1;
  char name[] = "operator";
  char* texts[] = {name, nullptr};
  if (task.desktop) {
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
      qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt would warn of every script.
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

// Reads what the playing process tells, until it is silent for too long or ends.
class Listener {
public:
  explicit Listener(int descriptor) : m_descriptor(descriptor) {}

  // False if nothing was heard for too long.
  bool listen()
  {
    pollfd waiting{m_descriptor, POLLIN, 0};
    while (poll(&waiting, 1, PatienceMs) > 0) {
      char buffer[4096];
      const ssize_t count = read(m_descriptor, buffer, sizeof buffer);
      if (count <= 0)
        return true;
      m_heard.append(buffer, count);
      takeLines();
    }
    return false;
  }

  Result result = {};
  bool ended = false; // the outcome has been told

private:
  void takeLines()
  {
    for (qsizetype end = m_heard.indexOf('\n'); end >= 0; end = m_heard.indexOf('\n')) {
      take(QString::fromUtf8(m_heard.first(end)));
      m_heard.remove(0, end + 1);
    }
  }

  void take(const QString& told)
  {
    const QString word = told.section(u' ', 0, 0);
    if (word != u"passed" && word != u"skipped" && word != u"failed") {
      result.line = word.toInt();
      return;
    }
    ended = true;
    result.outcome = word == u"passed" ? Outcome::Passed : word == u"skipped" ? Outcome::Skipped : Outcome::Failed;
    result.line = told.section(u' ', 1, 1).toInt();
    result.reason = told.section(u' ', 2);
  }

  int m_descriptor;
  QByteArray m_heard;
};

QString endingOf(int status)
{
  if (WIFSIGNALED(status))
    return QStringLiteral("the program crashed: %1").arg(QString::fromLocal8Bit(strsignal(WTERMSIG(status))));
  return QStringLiteral("the program ended the player with status %1").arg(WEXITSTATUS(status));
}

} // namespace

Result play(const Task& task)
{
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0)
    return {Outcome::Failed, 0, QStringLiteral("cannot make a pipe")};
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    runChild(task, ends[1]);
  }
  close(ends[1]);
  Listener listener(ends[0]);
  const bool heard = child > 0 && listener.listen();
  close(ends[0]);
  if (!heard && child > 0)
    kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  if (heard && listener.ended)
    return listener.result;
  return {Outcome::Failed, listener.result.line,
          heard ? endingOf(status) : QStringLiteral("expected this to end, hung for %1 seconds").arg(PatienceMs / 1000)};
}

} // namespace ScriptProcess
