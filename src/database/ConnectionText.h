#pragma once

#include "database/ServerAddress.h"

#include <QHash>
#include <QString>

// A connection text read back: the words between its ";", each a name and a value. A value may be
// in braces, and then holds any character.
class ConnectionText {
public:
  explicit ConnectionText(const QString& text);

  // Value of a name, without regard to case; empty if there is none.
  QString value(const QString& name) const { return m_values.value(name.toLower()); }

  // A Jet provider text: the database is a file, opened by the embedded engine.
  bool isJet() const;
  // A driver text: the database is on a server.
  bool isDriver() const { return m_values.contains(QStringLiteral("driver")); }
  // Full path of the file of a Jet text, with this system's separators.
  QString filePath() const;
  // Where the database of a driver text is, and who asks for it.
  ServerAddress server() const;

private:
  QHash<QString, QString> m_values;
};
