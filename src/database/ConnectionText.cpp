#include "database/ConnectionText.h"

#include <QDir>
#include <QStringList>

ConnectionText::ConnectionText(const QString& text)
{
  for (const QString& word : text.split(u';')) {
    const qsizetype equals = word.indexOf(u'=');
    if (equals > 0)
      m_values.insert(word.left(equals).trimmed().toLower(), word.mid(equals + 1).trimmed());
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
