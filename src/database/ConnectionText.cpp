#include "database/ConnectionText.h"

#include <QDir>

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
      ++at; // a doubled brace stands for one
    }
  }
  const qsizetype end = text.indexOf(u';', qMin(at, text.size()));
  return end < 0 ? text.size() : end;
}

QString withoutBraces(const QString& value)
{
  if (value.size() < 2 || !value.startsWith(u'{') || !value.endsWith(u'}'))
    return value;
  return value.sliced(1, value.size() - 2).replace(QStringLiteral("}}"), QStringLiteral("}"));
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
  return value(QStringLiteral("provider")).startsWith(QStringLiteral("Microsoft.Jet"), Qt::CaseInsensitive);
}

QString ConnectionText::filePath() const
{
  QString path = value(QStringLiteral("data source"));
  path.replace(u'\\', u'/');
  return QDir::cleanPath(path);
}

ServerAddress ConnectionText::server() const
{
  const QString where = value(QStringLiteral("server"));
  const qsizetype comma = where.lastIndexOf(u',');
  return {.driver = value(QStringLiteral("driver")),
          .host = (comma < 0 ? where : where.first(comma)).trimmed(),
          .port = comma < 0 ? QString() : where.sliced(comma + 1).trimmed(),
          .database = value(QStringLiteral("database")),
          .user = value(QStringLiteral("uid")),
          .password = value(QStringLiteral("pwd"))};
}
