#pragma once

#include <QFileInfo>
#include <QList>
#include <QString>
#include <QStringList>

// The files of the project as text, for the tests that keep its rules.
namespace SourceTree {

struct File {
  QString path; // from the root of the tree, "src/ledger/Money.h"
  QString text;

  QString name() const { return path.section(u'/', -1); }
  bool isUnder(const QString& folder) const { return path.startsWith(folder + u'/'); }
  bool isHeader() const { return path.endsWith(QStringLiteral(".h")); }
  // A picture or a workbook, which nobody reads as text.
  bool isBinary() const { return QFileInfo(path).suffix() == u"png" || QFileInfo(path).suffix().startsWith(u"xls"); }
  bool isSource() const { return path.endsWith(QStringLiteral(".cpp")); }
};

// Everything that belongs to the tree: not what is built, not what version control keeps.
QList<File> files();

// The files that the compiler is given in this build, from the root of the tree.
QStringList compiled();

// "path:line" of each place where a pattern matches.
QStringList places(const File& file, const QString& pattern);

// The paths named by #include "..." lines.
QStringList includes(const File& file);

} // namespace SourceTree
