#include "database/SqlTokens.h"

namespace SqlTokens {
namespace {

bool isDigit(QChar c)
{
  return c >= u'0' && c <= u'9';
}

bool isWordStart(QChar c)
{
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' || c.unicode() >= 0x80;
}

bool isWordPart(QChar c)
{
  return isWordStart(c) || isDigit(c) || c == u'$';
}

// U+3000 is not whitespace, here or in the engine.
bool isSpace(QChar c)
{
  return c == u' ' || (c >= u'\t' && c <= u'\r');
}

// End of a quoted text that starts at `at`; a doubled quote inside is one quote. -1 if it never ends.
qsizetype quotedEnd(QStringView sql, qsizetype at, QChar quote)
{
  for (qsizetype i = at + 1; i < sql.size(); ++i) {
    if (sql[i] != quote)
      continue;
    if (i + 1 < sql.size() && sql[i + 1] == quote)
      ++i;
    else
      return i + 1;
  }
  return -1;
}

template <typename Predicate> qsizetype endOf(QStringView sql, qsizetype at, Predicate belongs)
{
  while (at < sql.size() && belongs(sql[at]))
    ++at;
  return at;
}

// "1.5", ".5", "1e-5", and any letters that follow directly.
qsizetype numberEnd(QStringView sql, qsizetype at)
{
  const auto belongs = [](QChar c) { return isWordPart(c) || c == u'.'; };
  const qsizetype end = endOf(sql, at, belongs);
  const bool isExponent = sql[end - 1] == u'e' || sql[end - 1] == u'E';
  if (isExponent && end + 1 < sql.size() && (sql[end] == u'-' || sql[end] == u'+') && isDigit(sql[end + 1]))
    return endOf(sql, end + 1, belongs);
  return end;
}

SqlToken enclosed(QStringView sql, qsizetype at, SqlToken::Kind kind, qsizetype end)
{
  return end < 0 ? SqlToken{sql.sliced(at), kind, true} : SqlToken{sql.sliced(at, end - at), kind};
}

SqlToken next(QStringView sql, qsizetype at)
{
  const QChar c = sql[at];
  const QStringView rest = sql.sliced(at);
  if (c == u'-' && rest.startsWith(u"--")) {
    const qsizetype end = sql.indexOf(u'\n', at);
    return {end < 0 ? sql.sliced(at) : sql.sliced(at, end - at), SqlToken::Comment};
  }
  if (c == u'/' && rest.startsWith(u"/*")) {
    const qsizetype end = sql.indexOf(u"*/", at + 2);
    return enclosed(sql, at, SqlToken::Comment, end < 0 ? -1 : end + 2);
  }
  if (c == u'\'')
    return enclosed(sql, at, SqlToken::Text, quotedEnd(sql, at, c));
  if (c == u'"')
    return enclosed(sql, at, SqlToken::Word, quotedEnd(sql, at, c));
  if (c == u'[') {
    const qsizetype end = sql.indexOf(u']', at);
    return enclosed(sql, at, SqlToken::Word, end < 0 ? -1 : end + 1);
  }
  if (c == u'#') {
    const qsizetype end = sql.indexOf(u'#', at + 1);
    return enclosed(sql, at, SqlToken::Date, end < 0 ? -1 : end + 1);
  }
  if (isDigit(c) || (c == u'.' && rest.size() > 1 && isDigit(rest[1])))
    return {sql.sliced(at, numberEnd(sql, at) - at), SqlToken::Number};
  if (isWordStart(c))
    return {sql.sliced(at, endOf(sql, at, isWordPart) - at), SqlToken::Word};
  return {rest.first(1), SqlToken::Symbol};
}

} // namespace

std::vector<SqlToken> read(QStringView sql)
{
  std::vector<SqlToken> tokens;
  tokens.reserve(std::size_t(sql.size()) / 6);
  for (qsizetype at = 0; at < sql.size();) {
    if (isSpace(sql[at])) {
      ++at;
      continue;
    }
    tokens.push_back(next(sql, at));
    at += tokens.back().text.size();
  }
  return tokens;
}

QString quoted(const QString& text, QChar quote)
{
  return quote + QString(text).replace(quote, QString(2, quote)) + quote;
}

} // namespace SqlTokens
