#include "database/SqlTokens.h"

namespace SqlTokens {
namespace {

bool isWordStart(QChar c)
{
  return c.isLetter() || c == u'_' || c.unicode() >= 0x80;
}

bool isWordPart(QChar c)
{
  return isWordStart(c) || c.isDigit() || c == u'$';
}

// End of a text in quotes that starts at `at`; a doubled quote inside stands for one. -1 if it never ends.
qsizetype quotedEnd(const QString& sql, qsizetype at, QChar quote)
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

template <typename Predicate> qsizetype endOf(const QString& sql, qsizetype at, Predicate belongs)
{
  while (at < sql.size() && belongs(sql[at]))
    ++at;
  return at;
}

SqlToken enclosed(const QString& sql, qsizetype at, SqlToken::Kind kind, qsizetype end)
{
  return end < 0 ? SqlToken{kind, sql.mid(at), true} : SqlToken{kind, sql.mid(at, end - at)};
}

SqlToken next(const QString& sql, qsizetype at)
{
  const QChar c = sql[at];
  const QStringView rest = QStringView(sql).mid(at);
  if (c.isSpace())
    return {SqlToken::Blank, sql.mid(at, endOf(sql, at, [](QChar x) { return x.isSpace(); }) - at)};
  if (rest.startsWith(u"--")) {
    const qsizetype end = sql.indexOf(u'\n', at);
    return {SqlToken::Blank, end < 0 ? sql.mid(at) : sql.mid(at, end - at)};
  }
  if (rest.startsWith(u"/*")) {
    const qsizetype end = sql.indexOf(QStringLiteral("*/"), at + 2);
    return enclosed(sql, at, SqlToken::Blank, end < 0 ? -1 : end + 2);
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
  if (c.isDigit() || (c == u'.' && rest.size() > 1 && rest[1].isDigit()))
    return {SqlToken::Number, sql.mid(at, endOf(sql, at, [](QChar x) { return isWordPart(x) || x == u'.'; }) - at)};
  if (isWordStart(c))
    return {SqlToken::Word, sql.mid(at, endOf(sql, at, isWordPart) - at)};
  return {SqlToken::Symbol, QString(c)};
}

} // namespace

std::vector<SqlToken> read(const QString& sql)
{
  std::vector<SqlToken> tokens;
  for (qsizetype at = 0; at < sql.size();) {
    tokens.push_back(next(sql, at));
    at += tokens.back().text.size();
  }
  return tokens;
}

QString join(const std::vector<SqlToken>& tokens)
{
  QString sql;
  for (const SqlToken& token : tokens)
    sql += token.text;
  return sql;
}

} // namespace SqlTokens
