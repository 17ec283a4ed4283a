#pragma once

#include "database/ServerAddress.h"

#include <QHash>
#include <QString>

// A parsed connection text: key=value pairs separated by ";". A value in braces may contain any character.
class ConnectionText {
public:
  explicit ConnectionText(const QString& text);

  // Value of a name, without regard to case; empty if there is none.
  QString value(const QString& name) const { return m_values.value(name.toLower()); }

  // A Jet provider text: the database is a file, opened by the embedded engine.
  bool isJet() const;
  // A driver text: the database is on a server.
  bool isDriver() const;
  // Full path of the file of a Jet text, with "/" as separator.
  QString filePath() const;
  // Where the database of a driver text is, and its login.
  ServerAddress server() const;

private:
  QHash<QString, QString> m_values;
};
