#pragma once

#include <QString>

#include <tl/expected.hpp>

// Turns the system's SQL, in either dialect, into what an engine accepts. Only what the engine would not accept is
// rewritten, token by token: #date#, cint(x), convert(int,x), isnull(x) and top n, and a few characters that servers
// interpret differently. Everything else, spacing included, stays as it was written.
namespace DialectTranslator {

enum class Target {
  Embedded,
  PostgreSql,
  SqlServer, // its own dialect: nothing is rewritten
};

struct Translation {
  QString sql;
  bool isQuery = false; // a select
};

// Refused, with the reason: anything but one select, insert, update or delete; an unterminated text or date; a
// comment; a NUL character or half a surrogate pair, which drivers cut off silently; and for a server the characters
// that would make it, or its driver, read quotes differently from us.
[[nodiscard]] tl::expected<Translation, QString> translate(const QString& sql, Target target);
[[nodiscard]] inline tl::expected<Translation, QString> forEmbedded(const QString& sql)
{
  return translate(sql, Target::Embedded);
}

} // namespace DialectTranslator
