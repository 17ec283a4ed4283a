#pragma once

#include <QString>

// Turns the system's SQL, in either column of the dialect rule, into what an engine takes. Only what the
// engine would not take is rewritten, token by token: #date#, cint(x), convert(int,x), isnull(x) and
// top n, and for a server a few signs that it reads otherwise. Everything else, spacing included, stays
// as it was written.
namespace DialectTranslator {

enum class Target {
  Embedded,
  PostgreSql,
  SqlServer, // the SQL Server column of the dialect rule is its own: nothing is rewritten
};

struct Translation {
  QString sql;
  // Not empty if the statement may not be run at all; then the reason, and sql is empty.
  QString refusal;
  bool isQuery = false; // a select
};

// Refused: anything but one select, insert, update or delete; a text or date that does not end; a
// comment; a NUL character or half a surrogate pair, which drivers cut off silently; and for a server
// the signs by which it, or its driver, would read the quotes otherwise than we do.
Translation translate(const QString& sql, Target target);
inline Translation forEmbedded(const QString& sql)
{
  return translate(sql, Target::Embedded);
}

} // namespace DialectTranslator
