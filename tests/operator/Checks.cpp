#include "Checks.h"

#include "Failure.h"
#include "PlaceText.h"
#include "platform/AnsiText.h"

#include <QFile>

#include <algorithm>

namespace {

QString shown(const QString& text)
{
  return u'"' + PlaceText::onOneLine(text) + u'"';
}

void requireEqual(const QString& what, const QString& expected, const QString& found)
{
  if (PlaceText::onOneLine(expected) != PlaceText::onOneLine(found))
    throw Failure(QStringLiteral("%1: expected %2, was %3").arg(what, shown(expected), shown(found)));
}

void requireEqual(const QString& what, int expected, int found)
{
  if (expected != found)
    throw Failure(QStringLiteral("%1: expected %2, was %3").arg(what).arg(expected).arg(found));
}

// Reports the first line that differs, so that the reason of a long list is readable.
void requireEqualLines(const QString& what, const QStringList& expected, const QStringList& found)
{
  const auto lineOf = [](const QStringList& lines, qsizetype at) {
    return at < lines.size() ? shown(lines[at]) : QStringLiteral("its end");
  };
  for (qsizetype i = 0; i < qMax(expected.size(), found.size()); ++i)
    if (lineOf(expected, i) != lineOf(found, i))
      throw Failure(QStringLiteral("%1, line %2: expected %3, was %4").arg(what).arg(i + 1).arg(lineOf(expected, i), lineOf(found, i)));
}

// As a script writes them: a text that contains a "|" is quoted.
QString joined(const QStringList& places)
{
  QString line;
  for (const QString& place : places)
    line += u' ' + (place.contains(u'|') || place != PlaceText::cut(place) ? u'"' + place + u'"' : place) + QStringLiteral(" |");
  return u'|' + line;
}

QStringList joinedRows(const QList<QStringList>& rows)
{
  QStringList lines;
  for (const QStringList& row : rows)
    lines.append(joined(row));
  return lines;
}

} // namespace

void Checks::perform(const Directive& directive)
{
  const QString what = directive.control.text();
  switch (directive.verb) {
  case Verb::Form: return requireEqual(QStringLiteral("the topmost form"), directive.name, m_driver.topForm());
  case Verb::CheckText: return requireEqual(what, directive.text, m_driver.text(directive.control));
  case Verb::CheckState: return checkState(directive);
  case Verb::Items: return requireEqual(what, joined(directive.places), joined(m_driver.items(directive.control)));
  case Verb::GridCell:
  case Verb::GridMeasure:
  case Verb::GridWidth: return checkGrid(directive);
  case Verb::Tree: return requireEqualLines(what, directive.lines, m_driver.tree(directive.control));
  case Verb::Expect: return checkRows(directive);
  case Verb::Started: return checkStarted(directive);
  case Verb::NotStarted: return checkNotStarted();
  case Verb::FileContent: return checkFileContent(directive);
  case Verb::FileHas: return checkFileLine(directive, true);
  case Verb::FileLacks: return checkFileLine(directive, false);
  case Verb::FileAbsent:
    if (QFile::exists(m_environment.file(directive.name)))
      throw Failure(QStringLiteral("%1: expected to be absent, was there").arg(directive.name));
    return;
  default: return;
  }
}

void Checks::requireCell(const GridFace& grid, const Directive& directive)
{
  if (directive.row >= grid.rows || directive.column >= grid.cols)
    throw Failure(QStringLiteral("%1 has %2 rows and %3 columns").arg(directive.control.control).arg(grid.rows).arg(grid.cols));
}

void Checks::checkGrid(const Directive& directive)
{
  const GridFace grid = m_driver.grid(directive.control);
  const QString what = directive.control.text();
  const int column = directive.column;
  requireCell(grid, directive);
  if (directive.verb == Verb::GridCell)
    return requireEqual(QStringLiteral("%1 %2 %3").arg(what).arg(directive.row).arg(column), directive.text,
                        grid.text(directive.row, column));
  if (directive.verb == Verb::GridWidth)
    return requireEqual(QStringLiteral("%1 width %2").arg(what).arg(column), directive.number, grid.width(column));
  const QHash<QString, int> measures = {{"rows", grid.rows}, {"cols", grid.cols}, {"row", grid.row}, {"col", grid.col}};
  requireEqual(what + u' ' + directive.word, directive.number, measures.value(directive.word));
}

void Checks::checkState(const Directive& directive)
{
  static const QHash<QString, QString> opposites = {{"disabled", "enabled"}, {"hidden", "visible"}, {"unchecked", "checked"}};
  const QString state = opposites.value(directive.word, directive.word);
  if (m_driver.is(directive.control, state) != (state == directive.word))
    throw Failure(QStringLiteral("%1: expected to be %2, was not").arg(directive.control.text(), directive.word));
}

void Checks::checkRows(const Directive& directive)
{
  const QStringList found = joinedRows(m_environment.runSql(directive.text));
  const QStringList told = joinedRows(directive.rows);
  const QStringList nothing = {QStringLiteral("| nothing |")};
  requireEqualLines(QStringLiteral("the rows"), told == nothing && found != nothing ? QStringList() : told, found);
}

// Starts are checked in their order: each check removes those up to its own, so that two programs that were started in succession
// can both be checked.
void Checks::checkStarted(const Directive& directive)
{
  const QStringList& orders = directive.places;
  QList<Environment::StartedProgram>& started = m_environment.started();
  const auto fits = [&](const Environment::StartedProgram& program) {
    return program.name == directive.name && program.directives.mid(0, orders.size()) == orders;
  };
  const auto found = std::find_if(started.begin(), started.end(), fits);
  if (found != started.end()) {
    started.erase(started.begin(), found + 1);
    return;
  }
  QStringList were;
  for (const Environment::StartedProgram& program : started)
    were.append(program.name + QStringLiteral(" | ") + program.directives.join(QStringLiteral(" | ")));
  throw Failure(QStringLiteral("expected %1 to be started, was: %2")
                    .arg((QStringList(directive.name) + orders).join(QStringLiteral(" | ")),
                         were.isEmpty() ? QStringLiteral("not started") : were.join(QStringLiteral("; "))));
}

void Checks::checkNotStarted()
{
  const QList<Environment::StartedProgram> started = std::exchange(m_environment.started(), {});
  if (!started.isEmpty())
    throw Failure(QStringLiteral("expected no program to be started, was: %1").arg(started.first().name));
}

QStringList Checks::linesOf(const QString& name) const
{
  QFile file(m_environment.file(name));
  if (!file.open(QIODevice::ReadOnly))
    throw Failure(QStringLiteral("%1: expected a file, was absent").arg(name));
  QStringList lines = AnsiText::decode(file.readAll()).split(u'\n');
  // Text after the last line break is a line, but not an empty one.
  if (lines.last().isEmpty())
    lines.removeLast();
  for (QString& line : lines)
    if (line.endsWith(u'\r'))
      line.chop(1);
  return lines;
}

// Spaces at the end of a line may be left out, because editors remove them.
void Checks::checkFileContent(const Directive& directive)
{
  QStringList found = linesOf(directive.name);
  for (qsizetype i = 0; i < qMin(found.size(), directive.lines.size()); ++i)
    while (found[i].endsWith(u' ') && !directive.lines[i].endsWith(u' '))
      found[i].chop(1);
  requireEqualLines(directive.name, directive.lines, found);
}

void Checks::checkFileLine(const Directive& directive, bool has)
{
  const bool found = linesOf(directive.name).contains(directive.text);
  if (found != has)
    throw Failure(QStringLiteral("%1: expected %2 the line %3").arg(directive.name, has ? "to have" : "to lack", shown(directive.text)));
}
