#include "house/SourceTree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace SourceTree {
namespace {

QByteArray contentOf(const QString& path)
{
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void collect(const QDir& folder, const QDir& root, QList<File>& found)
{
  for (const QFileInfo& entry : folder.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)) {
    const QString path = root.relativeFilePath(entry.filePath());
    if (path == u"build" || path == u".git")
      continue;
    if (entry.isDir())
      collect(QDir(entry.filePath()), root, found);
    else
      found.append({path, QString::fromUtf8(contentOf(entry.filePath()))});
  }
}

} // namespace

QList<File> files()
{
  QList<File> found;
  const QDir root(QStringLiteral(PROJECT_FOLDER));
  collect(root, root, found);
  return found;
}

QStringList compiled()
{
  QStringList paths;
  const QDir root(QStringLiteral(PROJECT_FOLDER));
  const auto commands = QJsonDocument::fromJson(contentOf(QStringLiteral(BUILD_FOLDER "/compile_commands.json"))).array();
  for (const QJsonValue& command : commands)
    paths.append(root.relativeFilePath(command.toObject()[QStringLiteral("file")].toString()));
  return paths;
}

QStringList places(const File& file, const QString& pattern)
{
  const QRegularExpression expression(pattern);
  QStringList found;
  int line = 0;
  for (const QString& text : file.text.split(u'\n')) {
    ++line;
    if (expression.match(text).hasMatch())
      found.append(QStringLiteral("%1:%2").arg(file.path).arg(line));
  }
  return found;
}

QStringList includes(const File& file)
{
  static const QRegularExpression Include(QStringLiteral("^#include \"([^\"]+)\""), QRegularExpression::MultilineOption);
  QStringList paths;
  for (const auto& match : Include.globalMatch(file.text))
    paths.append(match.captured(1));
  return paths;
}

} // namespace SourceTree
