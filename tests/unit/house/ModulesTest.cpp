#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QMap>
#include <QRegularExpression>

// The rules of the sources that no compiler checks.

namespace {

using Names = QMap<QString, QStringList>; // by module, each list sorted

QString contentOf(const QString& path)
{
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return QString::fromUtf8(file.readAll());
}

QStringList filesIn(const QString& folder, const QStringList& patterns)
{
  QStringList paths;
  for (QDirIterator files(PROJECT_FOLDER + folder, patterns, QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
    paths.append(files.next());
  return paths;
}

// The other modules whose headers a module includes.
QStringList includedBy(const QString& module)
{
  static const QRegularExpression Include("^#include \"(\\w+)/", QRegularExpression::MultilineOption);
  QStringList modules;
  for (const QString& path : filesIn("/src/" + module, {"*.h", "*.cpp"}))
    for (const auto& match : Include.globalMatch(contentOf(path)))
      modules.append(match.captured(1));
  modules.removeAll(module);
  modules.removeDuplicates();
  modules.sort();
  return modules;
}

} // namespace

TEST(Modules, IncludeWhatTheyDeclareAndNothingAboveThem)
{
  static const QRegularExpression Declaration("^module\\((\\w+)(?: USES ([\\w ]+?))?(?: LIBRARIES.*)?\\)$",
                                              QRegularExpression::MultilineOption);
  QStringList declared;
  for (const auto& match : Declaration.globalMatch(contentOf(PROJECT_FOLDER "/src/CMakeLists.txt"))) {
    QStringList used = match.captured(2).split(u' ', Qt::SkipEmptyParts);
    for (const QString& other : used)
      EXPECT_TRUE(declared.contains(other)) << shown(match.captured(1)) << " uses " << shown(other);
    used.sort();
    declared.append(match.captured(1));
    EXPECT_EQ(includedBy(declared.last()).join(u' '), used.join(u' ')) << shown(declared.last());
  }
  QStringList folders = QDir(PROJECT_FOLDER "/src").entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  folders.removeOne("program"); // wires all of them together
  declared.sort();
  EXPECT_EQ(folders.join(u' '), declared.join(u' '));
}

TEST(Sources, HoldNothingThatBelongsElsewhere)
{
  const struct {
    const char* folder;
    const char* pattern;
    const char* exceptIn;
    const char* instead;
  } bans[] = {
      {"/src", "QDate::current|Time::current|system_clock::now|\\btime\\((NULL|nullptr|0)\\)", "platform/Machine.cpp",
       "Machine::now(), which a test can stop"},
      {"/src", "\\b(cint\\(|convert\\(int|isnull\\()", "session/ModuleADO|/database/", "SqlDialect"},
      {"/src", "\\bdouble\\b", "^(?!.*/(ledger|vouchers|bills|settlement)/.*[.]h$)", "Currency"},
      {"/", "(^|[^a-z.])/wo[r]k/|\\bPart [1-9]\\.[0-9]", "/(build|\\.git)/", "a path inside the tree, or the reason itself"},
  };
  for (const auto& ban : bans)
    for (const QString& path : filesIn(ban.folder, {"*.h", "*.cpp", "*.txt", "*.md", "*.op", "*.sh"}))
      if (!path.contains(QRegularExpression(ban.exceptIn))) {
        EXPECT_FALSE(contentOf(path).contains(QRegularExpression(ban.pattern, QRegularExpression::MultilineOption)))
            << shown(path) << ": " << ban.instead;
      }
}
