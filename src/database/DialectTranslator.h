#pragma once

#include <QString>

#include <tl/expected.hpp>

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
  bool isQuery = false; // a select
};

// Refused, with the reason: anything but one select, insert, update or delete; a text or date that does not end; a
// comment; a NUL character or half a surrogate pair, which drivers cut off silently; and for a server
// the signs by which it, or its driver, would read the quotes otherwise than we do.
[[nodiscard]] tl::expected<Translation, QString> translate(const QString& sql, Target target);
[[nodiscard]] inline tl::expected<Translation, QString> forEmbedded(const QString& sql)
{
  return translate(sql, Target::Embedded);
}

} // namespace DialectTranslator
