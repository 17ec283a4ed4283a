#include "spreadsheet/office/OfficeProcess.h"

#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QUrl>

#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// An argv array; valid as long as the words.
QList<char*> wordList(const QList<QByteArray>& words)
{
  QList<char*> list;
  for (const QByteArray& word : words)
    list.append(const_cast<char*>(word.constData()));
  return list << nullptr;
}

// A killed office leaves its unfinished files in the instance's temporary folder, which is emptied.
QList<QByteArray> environmentIn(const OfficeInstance& instance)
{
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"TMPDIR"_s, instance.temporaryFolder());
  QList<QByteArray> words;
  for (const QString& word : environment.toStringList())
    words.append(word.toLocal8Bit());
  return words;
}

// It is beside the library, or the program, that contains this code.
QByteArray watchProgram()
{
  Dl_info here{};
  dladdr(reinterpret_cast<const void*>(&watchProgram), &here);
  return QFileInfo(QFile::decodeName(here.dli_fname)).absolutePath().toLocal8Bit() + "/officewatch";
}

// Its output is of no use to users; its standard input is the pipe of its watch.
int spawn(const QList<QByteArray>& arguments, const QList<QByteArray>& environment, int watched, pid_t& id)
{
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, watched, STDIN_FILENO);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
  // A workbook that was handed over outlives the terminal from which the program was started. Signals that this
  // program ignores are reset.
  sigset_t all;
  sigfillset(&all);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigdefault(&attributes, &all);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);
  const int result = posix_spawn(&id, arguments.first(), &files, &attributes, wordList(arguments).data(), wordList(environment).data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  return result;
}

} // namespace

QString OfficeProcess::programFolder()
{
  const QString program = QStandardPaths::findExecutable(u"soffice"_s);
  return program.isEmpty() ? QString() : QFileInfo(QFileInfo(program).canonicalFilePath()).path();
}

bool OfficeProcess::hasDisplay()
{
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

bool OfficeProcess::start(const OfficeInstance& instance)
{
  const QByteArray display = hasDisplay() ? "--invisible" : "--headless";
  const QByteArray profile = QUrl::fromLocalFile(instance.profile()).toEncoded();
  int ends[2] = {-1, -1};
  if (pipe2(ends, O_CLOEXEC) != 0)
    return false;
  closeWatch();
  m_watch = ends[1];
  pid_t id = 0;
  const bool isStarted =
      spawn({watchProgram(), QFile::encodeName(programFolder() + u"/soffice.bin"_s), display, "--norestore", "--nologo", "--nodefault",
             "--nofirststartwizard", "-env:UserInstallation=" + profile, "--accept=pipe,name=" + instance.pipe.toUtf8() + ";urp;"},
            environmentIn(instance), ends[0], id) == 0;
  close(ends[0]);
  m_id = isStarted ? id : 0;
  return isStarted;
}

bool OfficeProcess::isRunning()
{
  if (m_id > 0 && waitpid(m_id, nullptr, WNOHANG) != 0)
    m_id = 0;
  return m_id > 0;
}

void OfficeProcess::kill()
{
  if (m_id > 0)
    ::kill(m_id, SIGKILL);
}

void OfficeProcess::wait()
{
  if (m_id > 0)
    waitpid(m_id, nullptr, 0);
  m_id = 0;
  closeWatch();
}

void OfficeProcess::letGo()
{
  if (m_watch >= 0 && write(m_watch, "", 1) != 1)
    qWarning("the watch of the office is gone");
  m_id = 0;
  closeWatch();
}

void OfficeProcess::closeWatch()
{
  if (m_watch >= 0)
    close(m_watch);
  m_watch = -1;
}
