#include "house/SourceTree.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using SourceTree::File;

// What may not stand in a file, where it may, and what to write instead. Paths are beginnings; an
// empty list of places means the whole tree. The patterns are in pieces so that this file keeps them.
struct Ban {
  QString pattern;
  QStringList in;
  QStringList exceptIn;
  QString instead;
};

const QList<Ban> Bans{
    {u"QDate::current|QDateTime::current|QTime::current|system_clock::now|\\btime\\((NULL|nullptr|0)\\)"_s,
     {u"src/"_s},
     {u"src/platform/Machine.cpp"_s},
     u"Machine::now() and today(), so that a test's clock stands still"_s},
    {u"\\b(cint\\(|convert\\(int|isnull\\()"_s,
     {u"src/"_s},
     {u"src/session/ModuleADO"_s, u"src/database/"_s},
     u"SqlDialect, which knows both dialects"_s},
    {u"\\bdouble\\b"_s,
     {u"src/ledger/"_s, u"src/vouchers/"_s, u"src/bills/"_s, u"src/settlement/"_s},
     {},
     u"Currency for money, or float where a rate is single precision (headers only)"_s},
    {u"^using namespace"_s, {u"src/"_s, u"tests/support/"_s}, {}, u"full names (headers only)"_s},
    {u"\\b(TO"
     "DO|FIX"
     "ME|XX"
     "X|HA"
     "CK)\\b"_s,
     {},
     {},
     u"the thing itself"_s},
    {u"\\bPart [1-9]\\.[0-9]|//.*\\bspec\\b|\\bspec\\.md|the specificat"
     "ion"_s,
     {},
     {},
     u"the reason, in the system's own words"_s},
    {u"(^|[^a-z.])/wo"
     "rk/|/ho"
     "me/"_s,
     {},
     {},
     u"a path inside the tree"_s},
};

constexpr int MostLines = 600;

bool startsWithOneOf(const QString& path, const QStringList& beginnings)
{
  return std::any_of(beginnings.begin(), beginnings.end(), [&](const QString& beginning) { return path.startsWith(beginning); });
}

QStringList brokenBans(const File& file)
{
  QStringList complaints;
  if (file.isBinary())
    return complaints;
  for (const Ban& ban : Bans) {
    const bool headersOnly = ban.instead.endsWith(u"(headers only)"_s);
    if ((!ban.in.isEmpty() && !startsWithOneOf(file.path, ban.in)) || startsWithOneOf(file.path, ban.exceptIn) ||
        (headersOnly && !file.isHeader()))
      continue;
    for (const QString& place : SourceTree::places(file, ban.pattern))
      complaints.append(place + u": write "_s + ban.instead);
  }
  return complaints;
}

QStringList badShape(const File& file)
{
  QStringList complaints;
  if (file.text.isEmpty())
    complaints.append(file.path + u" is empty"_s);
  if (file.text.count(u'\n') > MostLines && !file.isBinary())
    complaints.append(file.path + u" has more than 600 lines: it has more than one subject"_s);
  if (file.isHeader() && !file.text.startsWith(u"#pragma once\n"_s))
    complaints.append(file.path + u" does not start with #pragma once"_s);
  return complaints;
}

// Files that nothing uses: sources that are not compiled, headers that are not included, and other
// files whose name stands nowhere. What a folder holds is used if the folder as a whole is.
QStringList leftovers(const QList<File>& files, const QStringList& compiled)
{
  static const QStringList UsedAsAWhole{u"tests/scripts/"_s, u"tests/operator/selftest/"_s, u".ci/"_s, u".git"_s};
  static const QStringList EntryPoints{
      u"README.md"_s, u"CMakeLists.txt"_s, u"CMakePresets.json"_s, u".clang-format"_s, u".clang-tidy"_s, u".editorconfig"_s, u"run"_s, u"test"_s};
  QStringList found;
  for (const File& file : files) {
    // The build takes every .qrc of a room.
    if (startsWithOneOf(file.path, UsedAsAWhole) || EntryPoints.contains(file.name()) || file.path.endsWith(u".qrc"_s))
      continue;
    if (file.isSource()) {
      // The benchmarks have a preset of their own.
      if (!compiled.contains(file.path) && !file.isUnder(u"bench"_s))
        found.append(file.path + u" is not compiled"_s);
      continue;
    }
    const auto names = [&](const File& other) {
      if (file.path.endsWith(u".ui"_s))
        return other.text.contains(file.name().section(u'.', 0, 0));
      if (!file.isHeader())
        return other.text.contains(file.name());
      return other.text.contains(u'/' + file.name() + u'"') || other.text.contains(u'"' + file.name() + u'"');
    };
    const bool isUsed = std::any_of(files.begin(), files.end(), [&](const File& other) { return other.path != file.path && names(other); });
    if (!isUsed)
      found.append(file.path + u" is used nowhere"_s);
  }
  return found;
}

} // namespace

TEST(Tidiness, NoFileHoldsWhatIsBanned)
{
  for (const File& file : SourceTree::files())
    EXPECT_EQ(brokenBans(file).join(u'\n'), u""_s);
}

TEST(Tidiness, EveryTextHasItsShape)
{
  for (const File& file : SourceTree::files())
    EXPECT_EQ(badShape(file).join(u'\n'), u""_s);
}

TEST(Tidiness, NothingIsLeftOver)
{
  const QStringList compiled = SourceTree::compiled();
  ASSERT_TRUE(compiled.contains(u"src/platform/Currency.cpp"_s)) << "the list of compiled files";
  EXPECT_EQ(leftovers(SourceTree::files(), compiled).join(u'\n'), u""_s);
}
