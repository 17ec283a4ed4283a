#include "database/ConnectionText.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

// End of a value that starts at `at`: the next ";", or for a value in braces the one after its brace.
qsizetype endOfValue(QStringView text, qsizetype at)
{
  while (at < text.size() && text[at] == u' ')
    ++at;
  if (at < text.size() && text[at] == u'{') {
    for (++at; at < text.size(); ++at) {
      if (text[at] != u'}')
        continue;
      if (at + 1 >= text.size() || text[at + 1] != u'}')
        break;
      ++at; // a doubled brace is one
    }
  }
  const qsizetype end = text.indexOf(u';', qMin(at, text.size()));
  return end < 0 ? text.size() : end;
}

QString withoutBraces(const QString& value)
{
  if (value.size() < 2 || !value.startsWith(u'{') || !value.endsWith(u'}'))
    return value;
  return value.sliced(1, value.size() - 2).replace(u"}}"_s, u"}"_s);
}

} // namespace

ConnectionText::ConnectionText(const QString& text)
{
  for (qsizetype at = 0; at < text.size();) {
    const qsizetype semicolon = text.indexOf(u';', at);
    const qsizetype equals = text.indexOf(u'=', at);
    if (equals < 0 || (semicolon >= 0 && semicolon < equals)) {
      at = semicolon < 0 ? text.size() : semicolon + 1;
      continue;
    }
    const qsizetype end = endOfValue(text, equals + 1);
    if (equals > at)
      m_values.insert(text.mid(at, equals - at).trimmed().toLower(), withoutBraces(text.mid(equals + 1, end - equals - 1).trimmed()));
    at = end + 1;
  }
}

bool ConnectionText::isJet() const
{
  return value(u"provider"_s).startsWith(u"Microsoft.Jet"_s, Qt::CaseInsensitive);
}

bool ConnectionText::isDriver() const
{
  return m_values.contains(u"driver"_s);
}

QString ConnectionText::filePath() const
{
  QString path = value(u"data source"_s);
  path.replace(u'\\', u'/');
  return QDir::cleanPath(path);
}

ServerAddress ConnectionText::server() const
{
  const QString where = value(u"server"_s);
  const qsizetype comma = where.lastIndexOf(u',');
  return {.driver = value(u"driver"_s),
          .host = (comma < 0 ? where : where.first(comma)).trimmed(),
          .port = comma < 0 ? QString() : where.sliced(comma + 1).trimmed(),
          .database = value(u"database"_s),
          .user = value(u"uid"_s),
          .password = value(u"pwd"_s)};
}
