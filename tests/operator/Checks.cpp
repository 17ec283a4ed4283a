#include "Checks.h"

#include "PlaceText.h"
#include "Unmet.h"
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
    throw Unmet(QStringLiteral("%1: expected %2, was %3").arg(what, shown(expected), shown(found)));
}

void requireEqual(const QString& what, int expected, int found)
{
  if (expected != found)
    throw Unmet(QStringLiteral("%1: expected %2, was %3").arg(what).arg(expected).arg(found));
}

// Tells the first line that differs, so that a long list stays readable.
void requireEqualLines(const QString& what, const QStringList& expected, const QStringList& found)
{
  const auto lineOf = [](const QStringList& lines, qsizetype at) {
    return at < lines.size() ? shown(lines[at]) : QStringLiteral("its end");
  };
  for (qsizetype i = 0; i < qMax(expected.size(), found.size()); ++i)
    if (lineOf(expected, i) != lineOf(found, i))
      throw Unmet(QStringLiteral("%1, line %2: expected %3, was %4").arg(what).arg(i + 1).arg(lineOf(expected, i), lineOf(found, i)));
}

// As a script writes them, so that a "|" inside a place is told from one between two.
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
  case Verb::Form: return requireEqual(QStringLiteral("the topmost form"), directive.name, m_stage.topForm());
  case Verb::CheckText: return requireEqual(what, directive.text, m_stage.text(directive.control));
  case Verb::CheckState: return checkState(directive);
  case Verb::Items: return requireEqual(what, joined(directive.places), joined(m_stage.items(directive.control)));
  case Verb::GridCell:
    return requireEqual(QStringLiteral("%1 %2 %3").arg(what).arg(directive.row).arg(directive.column), directive.text,
                        m_stage.cell(directive.control, directive.row, directive.column));
  case Verb::GridMeasure:
    return requireEqual(what + u' ' + directive.word, directive.number, m_stage.measure(directive.control, directive.word));
  case Verb::GridWidth:
    return requireEqual(QStringLiteral("%1 width %2").arg(what).arg(directive.column), directive.number,
                        m_stage.columnWidth(directive.control, directive.column));
  case Verb::Tree: return requireEqualLines(what, directive.lines, m_stage.tree(directive.control));
  case Verb::Expect: return checkRows(directive);
  case Verb::Started: return checkStarted(directive);
  case Verb::NotStarted: return checkNotStarted();
  case Verb::FileContent: return checkFileContent(directive);
  case Verb::FileHas: return checkFileLine(directive, true);
  case Verb::FileLacks: return checkFileLine(directive, false);
  case Verb::FileAbsent:
    if (QFile::exists(m_scene.file(directive.name)))
      throw Unmet(QStringLiteral("%1: expected to be absent, was there").arg(directive.name));
    return;
  default: return;
  }
}

void Checks::checkState(const Directive& directive)
{
  static const QHash<QString, QString> opposites = {{"disabled", "enabled"}, {"hidden", "visible"}, {"unchecked", "checked"}};
  const QString state = opposites.value(directive.word, directive.word);
  if (m_stage.is(directive.control, state) != (state == directive.word))
    throw Unmet(QStringLiteral("%1: expected to be %2, was not").arg(directive.control.text(), directive.word));
}

void Checks::checkRows(const Directive& directive)
{
  const QStringList found = joinedRows(m_scene.runSql(directive.text));
  const QStringList told = joinedRows(directive.rows);
  const QStringList nothing = {QStringLiteral("| nothing |")};
  requireEqualLines(QStringLiteral("the rows"), told == nothing && found != nothing ? QStringList() : told, found);
}

// Starts are asked for in their order: each check takes those up to the one that it means, so that two
// programs that were started one behind the other can both be asked for.
void Checks::checkStarted(const Directive& directive)
{
  const QStringList& orders = directive.places;
  QList<Scene::StartedProgram>& started = m_scene.started();
  const auto fits = [&](const Scene::StartedProgram& program) {
    return program.name == directive.name && program.directives.mid(0, orders.size()) == orders;
  };
  const auto found = std::find_if(started.begin(), started.end(), fits);
  if (found != started.end()) {
    started.erase(started.begin(), found + 1);
    return;
  }
  QStringList were;
  for (const Scene::StartedProgram& program : started)
    were.append(program.name + QStringLiteral(" | ") + program.directives.join(QStringLiteral(" | ")));
  throw Unmet(QStringLiteral("expected %1 to be started, was: %2")
                  .arg((QStringList(directive.name) + orders).join(QStringLiteral(" | ")),
                       were.isEmpty() ? QStringLiteral("not started") : were.join(QStringLiteral("; "))));
}

void Checks::checkNotStarted()
{
  const QList<Scene::StartedProgram> started = std::exchange(m_scene.started(), {});
  if (!started.isEmpty())
    throw Unmet(QStringLiteral("expected no program to be started, was: %1").arg(started.first().name));
}

QStringList Checks::linesOf(const QString& name) const
{
  QFile file(m_scene.file(name));
  if (!file.open(QIODevice::ReadOnly))
    throw Unmet(QStringLiteral("%1: expected a file, was absent").arg(name));
  QStringList lines = AnsiText::decode(file.readAll()).split(u'\n');
  // What stands behind the last line break is no line.
  if (lines.last().isEmpty())
    lines.removeLast();
  for (QString& line : lines)
    if (line.endsWith(u'\r'))
      line.chop(1);
  return lines;
}

// Blanks at the end of a line need not be told, because editors cut them off scripts.
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
    throw Unmet(QStringLiteral("%1: expected %2 the line %3").arg(directive.name, has ? "to have" : "to lack", shown(directive.text)));
}
