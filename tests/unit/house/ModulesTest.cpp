#include "house/SourceTree.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QMap>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// Modules in their order, and what each includes, sorted.
using Modules = QList<std::pair<QString, QString>>;

// From the lines "module(name USES a b LIBRARIES x)".
Modules declaredIn(const QString& cmake)
{
  static const QRegularExpression Line(u"^module\\((\\w+)(?: USES ([\\w ]+?))?(?: LIBRARIES.*)?\\)$"_s,
                                       QRegularExpression::MultilineOption);
  Modules modules;
  for (auto match = Line.globalMatch(cmake); match.hasNext();) {
    const QRegularExpressionMatch found = match.next();
    QStringList used = found.captured(2).split(u' ', Qt::SkipEmptyParts);
    used.sort();
    modules.append({found.captured(1), used.join(u' ')});
  }
  return modules;
}

QMap<QString, QString> includedBy(const QList<SourceTree::File>& files)
{
  QMap<QString, QSet<QString>> sets;
  for (const SourceTree::File& file : files) {
    // The main program ties all modules together.
    if (!file.isUnder(u"src"_s) || file.isUnder(u"src/program"_s) || !(file.isHeader() || file.isSource()))
      continue;
    const QString module = file.path.section(u'/', 1, 1);
    sets[module];
    for (const QString& include : SourceTree::includes(file))
      if (include.contains(u'/') && include.section(u'/', 0, 0) != module)
        sets[module].insert(include.section(u'/', 0, 0));
  }
  QMap<QString, QString> included;
  for (auto set = sets.cbegin(); set != sets.cend(); ++set) {
    QStringList names = set.value().values();
    names.sort();
    included[set.key()] = names.join(u' ');
  }
  return included;
}

} // namespace

TEST(Modules, IncludeWhatTheyDeclareAndNothingAboveThem)
{
  const QList<SourceTree::File> files = SourceTree::files();
  Modules declared;
  for (const SourceTree::File& file : files)
    if (file.path == u"src/CMakeLists.txt")
      declared = declaredIn(file.text);
  QMap<QString, QString> included = includedBy(files);
  QStringList below;
  for (const auto& [module, used] : declared) {
    EXPECT_EQ(included.take(module), used) << shown(module);
    for (const QString& other : used.split(u' ', Qt::SkipEmptyParts))
      EXPECT_TRUE(below.contains(other)) << shown(module + u" uses "_s + other);
    below.append(module);
  }
  EXPECT_EQ(QStringList(included.keys()).join(u' '), u""_s) << "not declared";
}

TEST(Modules, AreReadFromTheirDeclarationsAndIncludes)
{
  EXPECT_EQ(declaredIn(u"module(a)\nmodule(b USES c a)\n# module(x)\nmodule(d USES a LIBRARIES Qt::X)\n"_s),
            (Modules{{u"a"_s, u""_s}, {u"b"_s, u"a c"_s}, {u"d"_s, u"a"_s}}));
  const QList<SourceTree::File> files{{u"src/a/A.h"_s, u"#include \"a/B.h\"\n#include <QString>\n"_s},
                                      {u"src/a/A.cpp"_s, u"#include \"a/A.h\"\n#include \"b/B.h\"\n// #include \"c/C.h\"\n"_s},
                                      {u"tests/x/X.cpp"_s, u"#include \"d/D.h\"\n"_s}};
  EXPECT_EQ(includedBy(files), (QMap<QString, QString>{{u"a"_s, u"b"_s}}));
}
