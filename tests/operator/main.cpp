#include "ScriptProcess.h"
#include "accountset/AccountSetLocation.h"

#include <QCommandLineParser>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHash>
#include <QTemporaryDir>

#include <cstdio>

// Plays operator scripts: operator [--desktop] [--server] [--keep DIR] SCRIPT-OR-FOLDER...

namespace {

using ScriptProcess::Outcome;

constexpr char UsageText[] = "Usage: operator [--desktop] [--server] [--keep DIR] SCRIPT-OR-FOLDER...\n";

// user:password@host:port of the server's administrator; tools/with-server sets it.
constexpr char ServerVariable[] = "ZORVEK_SERVER";

struct Arguments {
  bool desktop = false;
  std::optional<ServerAddress> server;
  QString keep;
  QStringList paths;
};

std::optional<Arguments> readArguments(const QStringList& texts)
{
  QCommandLineParser parser;
  parser.addOptions({QCommandLineOption("desktop"), QCommandLineOption("server"), QCommandLineOption("keep", {}, "DIR")});
  if (!parser.parse(texts) || parser.positionalArguments().isEmpty())
    return {};
  Arguments arguments{parser.isSet("desktop"), {}, parser.value("keep"), parser.positionalArguments()};
  if (parser.isSet("server")) {
    const auto location = AccountSetLocation::read(QStringLiteral("server://%1/postgres").arg(qEnvironmentVariable(ServerVariable)));
    if (!location)
      return {};
    arguments.server = location->server;
  }
  return arguments;
}

// The scripts of a folder and its subfolders in order of name. A script is itself, and so is a path that does not exist.
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

// The name of a script's program folder: its path below the folder that was given.
QString folderName(const QString& script, const QString& given)
{
  const QFileInfo info(given);
  const QString below =
      info.isDir() ? QDir(info.absoluteFilePath()).relativeFilePath(QFileInfo(script).absoluteFilePath()) : info.fileName();
  return below.size() > 3 && below.endsWith(u".op") ? below.chopped(3) : below;
}

void print(const QString& line)
{
  std::printf("%s\n", line.toUtf8().constData());
  std::fflush(stdout);
}

void print(const QString& script, const ScriptProcess::Result& result)
{
  if (result.outcome == Outcome::Failed)
    print(QStringLiteral("FAILED %1:%2: ").arg(script).arg(result.line) + result.reason);
  else
    print((result.outcome == Outcome::Passed ? QStringLiteral("ok ") : QStringLiteral("skipped ")) + script);
}

} // namespace

int main(int count, char** texts)
{
  QStringList all;
  for (int i = 0; i < count; ++i)
    all.append(QString::fromLocal8Bit(texts[i]));
  const auto arguments = readArguments(all);
  if (!arguments) {
    std::fputs(UsageText, stderr);
    return 2;
  }
  const QTemporaryDir temporary;
  const bool keeps = !arguments->keep.isEmpty();
  const QString base = keeps ? QDir(arguments->keep).absolutePath() : temporary.filePath(QStringLiteral("programs"));
  QHash<Outcome, int> tally;
  QHash<QString, int> names;
  for (const QString& path : arguments->paths)
    for (const QString& script : scriptsAt(path)) {
      const QString name = folderName(script, path);
      const int times = ++names[name];
      QDir folder(QDir(base).filePath(times == 1 ? name : name + u'-' + QString::number(times)));
      folder.removeRecursively();
      const auto result =
          ScriptProcess::play({script, folder.path(), temporary.path(), keeps ? base : QString(), arguments->desktop, arguments->server});
      print(script, result);
      ++tally[result.outcome];
      if (!keeps)
        folder.removeRecursively();
    }
  print(QStringLiteral("%1 passed, %2 failed").arg(tally[Outcome::Passed]).arg(tally[Outcome::Failed]));
  return tally[Outcome::Failed] == 0 && !tally.isEmpty() ? 0 : 1;
}
