#include "spreadsheet/office/OfficeProcess.h"

#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QUrl>

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A list of words as programs are given them; it lives as long as the words.
QList<char*> wordList(const QList<QByteArray>& words)
{
  QList<char*> list;
  for (const QByteArray& word : words)
    list.append(const_cast<char*>(word.constData()));
  return list << nullptr;
}

// What a killed office leaves half-made lies with its place, which wipes it.
QList<QByteArray> environmentIn(const OfficePlace& place)
{
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("TMPDIR"), place.temporaryFolder());
  QList<QByteArray> words;
  for (const QString& word : environment.toStringList())
    words.append(word.toLocal8Bit());
  return words;
}

// Its output tells operators nothing, and its standard input is none of its business.
int spawn(const QList<QByteArray>& arguments, const QList<QByteArray>& environment, pid_t& id)
{
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
  // A workbook that was handed over outlives the terminal from which the program was started. The signals that
  // the program ignores are its own business.
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
  const QString program = QStandardPaths::findExecutable(QStringLiteral("soffice"));
  return program.isEmpty() ? QString() : QFileInfo(QFileInfo(program).canonicalFilePath()).path();
}

bool OfficeProcess::hasDisplay()
{
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

bool OfficeProcess::start(const OfficePlace& place)
{
  const QByteArray display = hasDisplay() ? "--invisible" : "--headless";
  const QByteArray profile = QUrl::fromLocalFile(place.profileFolder + "/profile").toEncoded();
  pid_t id = 0;
  const bool isStarted =
      spawn({QFile::encodeName(programFolder() + "/soffice.bin"), display, "--norestore", "--nologo", "--nodefault", "--nofirststartwizard",
             "-env:UserInstallation=" + profile, "--accept=pipe,name=" + place.pipe.toUtf8() + ";urp;"},
            environmentIn(place), id) == 0;
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
}
