#pragma once

#include <QString>

// Turns the system's SQL, in either column of the dialect rule, into what another engine takes.
// Only five things are rewritten, token by token: #date#, cint(x), convert(int,x), isnull(x) and
// top n. Everything else, spacing included, stays as it was written.
namespace DialectTranslator {

struct Translation {
  QString sql;
  // Not empty if the statement may not be run at all; then the reason, and sql is empty.
  QString refusal;
};

// For the embedded engine. Refused: anything but one select, insert, update or delete; a text or
// date that does not end; a comment; a NUL character or half a surrogate pair, which drivers cut off silently.
Translation forEmbedded(const QString& sql);

} // namespace DialectTranslator
