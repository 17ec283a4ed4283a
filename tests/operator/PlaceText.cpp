#include "PlaceText.h"

namespace PlaceText {
namespace {

bool isBlank(QChar c)
{
  return c == u' ' || c == u'\t';
}

qsizetype skipBlanks(QStringView line, qsizetype at)
{
  while (at < line.size() && isBlank(line[at]))
    ++at;
  return at;
}

// Where the text that begins at `from` ends: at a "|" or at the end of the line.
qsizetype placeEnd(QStringView line, qsizetype from)
{
  const qsizetype start = skipBlanks(line, from);
  if (start < line.size() && line[start] == u'"') {
    for (qsizetype quote = line.indexOf(u'"', start + 1); quote >= 0; quote = line.indexOf(u'"', quote + 1)) {
      const qsizetype behind = skipBlanks(line, quote + 1);
      if (behind == line.size() || line[behind] == u'|')
        return behind;
    }
  }
  const qsizetype bar = line.indexOf(u'|', from);
  return bar < 0 ? line.size() : bar;
}

} // namespace

QString cut(QStringView text)
{
  while (!text.isEmpty() && isBlank(text.front()))
    text = text.mid(1);
  while (!text.isEmpty() && isBlank(text.back()))
    text.chop(1);
  return text.toString();
}

QString unquoted(QStringView text)
{
  const QString inner = cut(text);
  const bool quoted = inner.size() >= 2 && inner.startsWith(u'"') && inner.endsWith(u'"');
  return quoted ? inner.mid(1, inner.size() - 2) : inner;
}

QStringList split(QStringView line)
{
  QStringList places;
  for (qsizetype from = 0;;) {
    const qsizetype end = placeEnd(line, from);
    places.append(unquoted(line.mid(from, end - from)));
    if (end == line.size())
      return places;
    from = end + 1;
  }
}

QString onOneLine(QString text)
{
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\\n"));
  text.replace(u'\n', QStringLiteral("\\n"));
  return text.replace(u'\r', QStringLiteral("\\n"));
}

} // namespace PlaceText
