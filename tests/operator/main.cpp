#include "AccountSetGround.h"
#include "ModelStage.h"
#include "ScriptProcess.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHash>
#include <QTemporaryDir>

#include <cstdio>

// Plays operator scripts: operator [--desktop] [--server] [--keep DIR] SCRIPT-OR-FOLDER...

namespace {

constexpr char UsageText[] = "Usage: operator [--desktop] [--server] [--keep DIR] SCRIPT-OR-FOLDER...\n";

// Where the server is; tools/with-server sets it.
constexpr char ServerVariable[] = "ZORVEK_SERVER";

struct Arguments {
  bool desktop = false;
  std::optional<ServerAddress> server;
  QString keep;
  QStringList paths;
  bool valid = true;
};

Arguments readArguments(int count, char** texts)
{
  Arguments arguments;
  for (int i = 1; i < count; ++i) {
    const QString text = QString::fromLocal8Bit(texts[i]);
    if (text == u"--desktop")
      arguments.desktop = true;
    else if (text == u"--server") {
      arguments.server = AccountSetGround::readServer(qEnvironmentVariable(ServerVariable));
      arguments.valid = arguments.valid && arguments.server;
    } else if (text == u"--keep" && i + 1 < count)
      arguments.keep = QString::fromLocal8Bit(texts[++i]);
    else if (text.startsWith(u"--"))
      arguments.valid = false;
    else
      arguments.paths.append(text);
  }
  arguments.valid = arguments.valid && !arguments.paths.isEmpty();
  return arguments;
}

// The scripts of a folder and its folders in order of name; a script, or what is not there, is itself.
QStringList scriptsAt(const QString& path)
{
  if (!QFileInfo(path).isDir())
    return {path};
  QStringList found;
  QDirIterator files(path, {QStringLiteral("*.op")}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext())
    found.append(files.next());
  found.sort();
  return found;
}

// Names the program folders: by the script's path below the folder that was asked for, and with a
// number behind if that name is taken.
class FolderNames {
public:
  QString nameOf(const QString& script, const QString& askedFor)
  {
    const QFileInfo asked(askedFor);
    const QString below =
        asked.isDir() ? QDir(asked.absoluteFilePath()).relativeFilePath(QFileInfo(script).absoluteFilePath()) : asked.fileName();
    const QString name = below.size() > 3 && below.endsWith(u".op") ? below.chopped(3) : below;
    const int times = ++m_times[name];
    return times == 1 ? name : name + u'-' + QString::number(times);
  }

private:
  QHash<QString, int> m_times;
};

void print(const QString& line)
{
  std::printf("%s\n", line.toUtf8().constData());
  std::fflush(stdout);
}

class Tally {
public:
  void add(const QString& script, const ScriptProcess::Result& result)
  {
    switch (result.outcome) {
    case ScriptProcess::Outcome::Passed: ++m_passed; return print(QStringLiteral("ok ") + script);
    case ScriptProcess::Outcome::Skipped: ++m_skipped; return print(QStringLiteral("skipped ") + script);
    case ScriptProcess::Outcome::Failed:
      ++m_failed;
      return print(QStringLiteral("FAILED ") + script + u':' + QString::number(result.line) + QStringLiteral(": ") + result.reason);
    }
  }

  int close() const
  {
    print(QStringLiteral("%1 passed, %2 failed").arg(m_passed).arg(m_failed));
    return m_failed == 0 && m_passed + m_skipped > 0 ? 0 : 1;
  }

private:
  int m_passed = 0;
  int m_failed = 0;
  int m_skipped = 0;
};

} // namespace

int main(int count, char** texts)
{
  const Arguments arguments = readArguments(count, texts);
  if (!arguments.valid) {
    std::fputs(UsageText, stderr);
    return 2;
  }
  const QTemporaryDir temporary;
  const QString base = arguments.keep.isEmpty() ? temporary.filePath(QStringLiteral("programs")) : QDir(arguments.keep).absolutePath();
  Tally tally;
  FolderNames names;
  for (const QString& path : arguments.paths)
    for (const QString& script : scriptsAt(path)) {
      const QString folder = QDir(base).filePath(names.nameOf(script, path));
      QDir(folder).removeRecursively();
      tally.add(script, ScriptProcess::play({script, folder, temporary.path(), arguments.keep.isEmpty() ? QString() : base,
                                             arguments.desktop, arguments.server}));
      if (arguments.keep.isEmpty())
        QDir(folder).removeRecursively();
    }
  return tally.close();
}
