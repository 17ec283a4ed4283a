#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

// A bill that was typed and not saved, as texts, so that it can be put back on its screen.
struct Draft {
  QDateTime keptAt;
  QString sum;                   // as the screen showed it
  QMap<QString, QString> fields; // by the names of their controls
  QList<QStringList> lines;      // the rows of the grid below its headings

  bool isSaved = false; // an edit of a stored bill
  // That bill, and what it was when it was read, as BillStore has it. Without a code there is none.
  QString table;
  QString code;
  std::optional<QStringList> read;

  // The content of its file: a line with the version and a check sum, then the rest.
  QByteArray toBytes() const;
  // Nothing for what is damaged, or of another version.
  static std::optional<Draft> ofBytes(const QByteArray& bytes);

  friend bool operator==(const Draft&, const Draft&) = default;
};
