#include "Script.h"

#include "PlaceText.h"

#include <QHash>
#include <QRegularExpression>

namespace {

struct Usage {
  Verb verb;
  const char* text;
};

// The syntax of each directive; of several with the same first word the first match counts. Words in capitals are arguments, "[…]"
// is optional, "(a|b)" is a choice. An invalid directive is reported with it.
constexpr Usage Usages[] = {
    {Verb::AccountSet, "account-set (empty|demo)"},
    {Verb::Clock, "clock DATE [TIME]"},
    {Verb::Session, "session KEY = [TEXT]"},
    {Verb::Siblings, "siblings WORDS"},
    {Verb::Sql, "sql SQL"},
    {Verb::StartWithoutParameters, "start without parameters"},
    {Verb::Start, "start [PLACES]"},
    {Verb::Type, "type CONTROL [TEXT]"},
    {Verb::Key, "key KEYNAME"},
    {Verb::Focus, "focus CONTROL"},
    {Verb::Click, "click CONTROL [INDEX]"},
    {Verb::DoubleClick, "double-click CONTROL"},
    {Verb::Choose, "choose CONTROL [TEXT]"},
    {Verb::SetDate, "set-date CONTROL DATE"},
    {Verb::Cell, "cell CONTROL ROW COL"},
    {Verb::DoubleCell, "double-cell CONTROL ROW COL"},
    {Verb::Node, "node CONTROL TEXT"},
    {Verb::DoubleNode, "double-node CONTROL TEXT"},
    {Verb::Wheel, "wheel CONTROL NUMBER"},
    {Verb::Close, "close"},
    {Verb::Message, "message TEXT [ICON]"},
    {Verb::Ask, "ask TEXT [ICON] -> (yes|no|ok|cancel)"},
    {Verb::Form, "form NAME"},
    {Verb::Ended, "ended"},
    {Verb::CheckState, "check CONTROL is (enabled|disabled|visible|hidden|checked|unchecked|focused)"},
    {Verb::CheckText, "check CONTROL = [TEXT]"},
    {Verb::Items, "items CONTROL = [PLACES]"},
    {Verb::GridMeasure, "grid CONTROL (rows|cols|row|col) = NUMBER"},
    {Verb::GridWidth, "grid CONTROL width COL = NUMBER"},
    {Verb::GridCell, "grid CONTROL ROW COL = [TEXT]"},
    {Verb::Tree, "tree CONTROL"},
    {Verb::Expect, "expect SQL"},
    {Verb::NotStarted, "not started"},
    {Verb::Started, "started NAME [| PLACES]"},
    {Verb::FileAbsent, "file NAME absent"},
    {Verb::FileHas, "file NAME has TEXT"},
    {Verb::FileLacks, "file NAME lacks TEXT"},
    {Verb::FileContent, "file NAME"},
    {Verb::Screenshot, "screenshot NAME"},
};

// The arguments as regular expressions. A text is as short as what follows it permits.
const QHash<QString, QString> Arguments = {
    {"CONTROL", "(?<control>[^\\s=]+)"},
    {"NAME", "(?<name>\"[^\"]+\"|[^\\s|]+)"},
    {"KEYNAME", "(?<name>.+)"},
    {"KEY", "(?<name>[^\\s=]+)"},
    {"WORDS", "(?<words>.+)"},
    {"SQL", "(?<sql>.+)"},
    {"TEXT", "(?<text>.+?)"},
    {"PLACES", "(?<places>.*)"},
    {"INDEX", "(?<row>\\d{1,6})"},
    {"ROW", "(?<row>\\d{1,6})"},
    {"COL", "(?<column>\\d{1,6})"},
    {"NUMBER", "(?<number>-?\\d{1,9})"},
    {"DATE", "(?<date>\\d{4}-\\d{1,2}-\\d{1,2})"},
    {"TIME", "(?<time>\\d{1,2}:\\d{2}(?::\\d{2})?)"},
    {"ICON", "\\[(?<icon>none|information|question|warning|stop)\\]"},
    {"=", "[ \\t]*=[ \\t]*"},
    {"->", "[ \\t]*->[ \\t]*"},
    {"|", "[ \\t]*\\|[ \\t]*"},
};

QString firstWord(const QString& line)
{
  static const QRegularExpression blank(QStringLiteral("[ \t]"));
  return line.left(line.indexOf(blank));
}

// The usage as an expression for a whole line.
QRegularExpression expressionOf(const char* usage)
{
  QString pattern;
  for (QString part : QString::fromLatin1(usage).split(u' ')) {
    const bool opens = part.startsWith(u'[');
    const bool closes = part.endsWith(u']');
    part.remove(u'[').remove(u']');
    QString piece = Arguments.value(part, part);
    if (part.startsWith(u'('))
      piece.insert(1, QStringLiteral("?<word>"));
    // "=", "->" and "|" include the spaces around them.
    const bool separated = !pattern.isEmpty() && !pattern.endsWith(u'*') && !piece.startsWith(u"[ \\t]*");
    pattern += (opens ? QStringLiteral("(?:") : QString()) + (separated ? QStringLiteral("[ \\t]+") : QString()) + piece +
               (closes ? QStringLiteral(")?") : QString());
  }
  return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

::Key keyOf(const QString& name, int line)
{
  if (name.startsWith(u"Ctrl+")) {
    ::Key key = keyOf(name.mid(5), line);
    key.ctrl = true;
    return key;
  }
  static const QHash<QString, ::Key::Code> named = {
      {"Enter", ::Key::Enter},       {"Tab", ::Key::Tab},
      {"Shift+Tab", ::Key::Tab},     {"Shift+Enter", ::Key::Enter},
      {"Esc", ::Key::Escape},        {"Up", ::Key::Up},
      {"Down", ::Key::Down},         {"Left", ::Key::Left},
      {"Right", ::Key::Right},       {"PageUp", ::Key::PageUp},
      {"PageDown", ::Key::PageDown}, {"Home", ::Key::Home},
      {"End", ::Key::End},           {"Backspace", ::Key::Backspace},
      {"Delete", ::Key::Delete},
  };
  if (const auto found = named.constFind(name); found != named.constEnd())
    return {*found, {}, name.startsWith(u"Shift+")};
  const QString character = PlaceText::unquoted(name);
  if (character.toUcs4().size() != 1)
    throw ScriptError(line, QStringLiteral("there is no key \"%1\"").arg(name));
  return ::Key::character(character);
}

ControlName controlOf(const QString& name)
{
  const qsizetype point = name.indexOf(u'.');
  return point < 0 ? ControlName{{}, name} : ControlName{name.left(point), name.mid(point + 1)};
}

QDateTime whenOf(const QString& date, const QString& time, int line)
{
  const QDate day = QDate::fromString(date, QStringLiteral("yyyy-M-d"));
  const QTime hour = time.isEmpty() ? QTime(9, 0) : QTime::fromString(time, time.count(u':') == 2 ? "H:mm:ss" : "H:mm");
  if (!day.isValid() || !hour.isValid())
    throw ScriptError(line, QStringLiteral("there is no such date or time: %1").arg(PlaceText::cut(date + u' ' + time)));
  return {day, hour};
}

Directive directiveOf(Verb verb, const QRegularExpressionMatch& match, int line)
{
  const auto captured = [&](const char* name) { return match.captured(QString::fromLatin1(name)); };
  const auto index = [&](const char* name) { return match.hasCaptured(QString::fromLatin1(name)) ? captured(name).toInt() : -1; };
  Directive made;
  made.line = line;
  made.verb = verb;
  made.control = controlOf(captured("control"));
  made.name = PlaceText::unquoted(captured("name"));
  made.word = captured("word");
  made.text = verb == Verb::Sql || verb == Verb::Expect ? captured("sql") : PlaceText::unquoted(captured("text"));
  if (verb == Verb::Siblings)
    made.places = captured("words").split(QRegularExpression(QStringLiteral("[ \\t]+")));
  else if (const QString places = captured("places"); !places.isEmpty())
    made.places = PlaceText::split(places);
  made.row = index("row");
  made.column = index("column");
  made.number = captured("number").toInt();
  if (const QString date = captured("date"); !date.isEmpty())
    made.when = whenOf(date, captured("time"), line);
  if (verb == Verb::Key)
    made.key = keyOf(captured("name"), line);
  for (const auto icon : {Desk::Icon::None, Desk::Icon::Information, Desk::Icon::Question, Desk::Icon::Warning, Desk::Icon::Stop})
    if (captured("icon") == iconName(icon))
      made.icon = icon;
  if (verb == Verb::Start && made.places.size() > 5)
    throw ScriptError(line, QStringLiteral("there are five directives at most"));
  return made;
}

Directive readDirective(const QString& text, int line)
{
  static QHash<const Usage*, QRegularExpression> expressions;
  const QString word = firstWord(text);
  QStringList usages;
  for (const Usage& usage : Usages) {
    if (firstWord(QString::fromLatin1(usage.text)) != word)
      continue;
    auto expression = expressions.find(&usage);
    if (expression == expressions.end())
      expression = expressions.insert(&usage, expressionOf(usage.text));
    const QRegularExpressionMatch match = expression->match(text);
    if (match.hasMatch())
      return directiveOf(usage.verb, match, line);
    usages.append(QString::fromLatin1(usage.text));
  }
  throw ScriptError(line, usages.isEmpty() ? QStringLiteral("there is no directive \"%1\"").arg(word)
                                           : QStringLiteral("expected \"%1\"").arg(usages.join(QStringLiteral("\" or \""))));
}

// A line that belongs to the directive before it: "> text", in which every further space counts, or "| value | value |".
void readFurtherLine(const QString& text, int line, QList<Directive>& directives)
{
  const bool isRow = text.startsWith(u'|');
  const Verb verb = directives.isEmpty() ? Verb::Close : directives.last().verb;
  if (isRow ? verb != Verb::Expect : verb != Verb::Tree && verb != Verb::FileContent)
    throw ScriptError(line, QStringLiteral("this line belongs to no directive ahead of it"));
  if (!isRow) {
    directives.last().lines.append(text.mid(text.startsWith(u"> ") ? 2 : 1));
    return;
  }
  const QString row = PlaceText::cut(text);
  if (row.size() < 2 || !row.endsWith(u'|'))
    throw ScriptError(line, QStringLiteral("a row ends with \"|\""));
  directives.last().rows.append(PlaceText::split(QStringView(row).mid(1).chopped(1)));
}

QStringList linesOf(const QByteArray& utf8)
{
  QString text = QString::fromUtf8(utf8);
  if (text.startsWith(QChar::ByteOrderMark))
    text.remove(0, 1);
  QStringList lines = text.split(u'\n');
  for (QString& line : lines)
    if (line.endsWith(u'\r'))
      line.chop(1);
  return lines;
}

Script::For playedForOf(const QString& firstLine)
{
  const QString line = PlaceText::cut(firstLine);
  if (line == u"# view model only")
    return Script::For::ViewModelOnly;
  if (line == u"# file only")
    return Script::For::FileOnly;
  return line == u"# desktop only" ? Script::For::DesktopOnly : Script::For::Everywhere;
}

} // namespace

QString iconName(Desk::Icon icon)
{
  switch (icon) {
  case Desk::Icon::None: return QStringLiteral("none");
  case Desk::Icon::Information: return QStringLiteral("information");
  case Desk::Icon::Question: return QStringLiteral("question");
  case Desk::Icon::Warning: return QStringLiteral("warning");
  case Desk::Icon::Stop: return QStringLiteral("stop");
  }
  return {};
}

Script Script::read(const QByteArray& utf8)
{
  const QStringList lines = linesOf(utf8);
  Script script;
  script.playedFor = playedForOf(lines.first());
  for (int i = 0; i < lines.size(); ++i) {
    const QString text = PlaceText::cut(lines[i]);
    if (text.isEmpty() || text.startsWith(u'#'))
      continue;
    if (text.startsWith(u'>'))
      readFurtherLine(lines[i].mid(lines[i].indexOf(u'>')), i + 1, script.directives);
    else if (text.startsWith(u'|'))
      readFurtherLine(text, i + 1, script.directives);
    else
      script.directives.append(readDirective(text, i + 1));
  }
  for (const Directive& directive : script.directives)
    if (directive.verb == Verb::Expect && directive.rows.isEmpty())
      throw ScriptError(directive.line, QStringLiteral("no rows are told; none is \"| nothing |\""));
  return script;
}
