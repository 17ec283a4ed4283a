#include "database/DialectTranslator.h"

#include "database/SqlArithmetic.h"
#include "database/SqlTokens.h"
#include "platform/DateText.h"

#include <algorithm>
#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace DialectTranslator {
namespace {

using Tokens = std::vector<SqlToken>;

bool hasBrokenCharacter(QStringView sql)
{
  const char16_t* const text = sql.utf16();
  for (qsizetype i = 0; i < sql.size(); ++i) {
    if (text[i] == 0 || QChar::isLowSurrogate(text[i]))
      return true;
    if (QChar::isHighSurrogate(text[i]) && (++i == sql.size() || !QChar::isLowSurrogate(text[i])))
      return true;
  }
  return false;
}

bool isPlain(const SqlToken& token)
{
  return token.kind == SqlToken::Number || token.kind == SqlToken::Symbol ||
         (token.kind == SqlToken::Word && token.text[0] != u'"' && token.text[0] != u'[');
}

// A driver reads {...} as its own syntax; PostgreSQL reads $...$ and E'...' as quotes.
std::optional<QString> refusalOfSigns(const Tokens& tokens, Target target)
{
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const SqlToken& token = tokens[at];
    const bool opensEscapes = target == Target::PostgreSql && token.isWord("e"_L1) && at + 1 < tokens.size() &&
                              tokens[at + 1].kind == SqlToken::Text && tokens[at + 1].text.data() == token.text.data() + 1;
    if (opensEscapes || (isPlain(token) && (token.text.contains(u'{') || (target == Target::PostgreSql && token.text.contains(u'$')))))
      return u"语句含有无效字符：%1"_s.arg(token.text.left(60).toString());
  }
  return std::nullopt;
}

std::optional<QString> refusalOf(QStringView sql, const Tokens& tokens, Target target)
{
  if (hasBrokenCharacter(sql))
    return u"语句含有无效字符"_s;
  for (const SqlToken& token : tokens) {
    if (token.open)
      return u"语句中的引号或日期没有结束：%1"_s.arg(token.text.left(60).toString());
    // The suite writes no comments: one means that a value has escaped its quotes, or a double minus ("a--5"), and
    // would cut off the rest of the statement.
    if (token.kind == SqlToken::Comment)
      return u"语句中不允许注释：%1"_s.arg(token.text.left(60).toString());
  }
  static constexpr QLatin1String Allowed[] = {"select"_L1, "insert"_L1, "update"_L1, "delete"_L1};
  if (tokens.empty() || std::none_of(std::begin(Allowed), std::end(Allowed), [&](auto word) { return tokens.front().isWord(word); }))
    return u"只允许 select、insert、update、delete 语句"_s;
  for (std::size_t at = 0; at < tokens.size(); ++at)
    if (tokens[at].isSymbol(u';') && at + 1 < tokens.size())
      return u"一次只允许一条语句"_s;
  return target == Target::Embedded ? std::nullopt : refusalOfSigns(tokens, target);
}

// Position of the bracket that closes the one at `open`; nothing if it is missing.
std::optional<std::size_t> closingBracket(const Tokens& tokens, std::size_t open)
{
  int depth = 0;
  for (std::size_t at = open; at < tokens.size(); ++at) {
    if (tokens[at].isSymbol(u'('))
      ++depth;
    else if (tokens[at].isSymbol(u')') && --depth == 0)
      return at;
  }
  return std::nullopt;
}

QString dateLiteral(QStringView token)
{
  const QStringView inside = token.sliced(1, token.size() - 2).trimmed();
  const auto date = DateText::parse(inside);
  return SqlTokens::quoted(date ? DateText::shortForm(*date) : inside.toString(), u'\'');
}

// "#2022-06-08#", as nearly all dates are written: only the delimiters change.
bool isShortForm(QStringView token)
{
  static constexpr char16_t Form[] = u"#0000-00-00#";
  if (token.size() != 12)
    return false;
  for (qsizetype i = 0; i < token.size(); ++i)
    if (Form[i] == u'0' ? !(token[i] >= u'0' && token[i] <= u'9') : token[i] != Form[i])
      return false;
  return true;
}

// "[Name]" or "\"Name\"" as the server writes it.
QString quotedName(QStringView token)
{
  const QString inside = token.sliced(1, token.size() - 2).toString().toLower();
  return token[0] == u'[' ? SqlTokens::quoted(inside, u'"') : u'"' + inside + u'"';
}

// Collects the changes of a statement and applies them.
class Rewriter {
public:
  Rewriter(QStringView sql, const Tokens& tokens, Target target) : m_sql(sql), m_tokens(tokens), m_target(target) {}

  // Nothing if two changes overlap, as they can in a statement that no engine would accept.
  std::optional<QString> rewritten()
  {
    for (std::size_t at = 0; at < m_tokens.size(); ++at) {
      if (m_tokens[at].kind == SqlToken::Date)
        rewriteDate(at);
      else if (m_tokens[at].kind == SqlToken::Word)
        rewriteWord(at);
    }
    if (m_target == Target::Embedded)
      SqlArithmetic::rewrite(m_sql, m_tokens, m_edits);
    return written();
  }

private:
  qsizetype positionOf(std::size_t token) const
  {
    return token < m_tokens.size() ? m_tokens[token].text.data() - m_sql.data() : m_sql.size();
  }
  void insert(std::size_t before, const QString& text) { m_edits.push_back({positionOf(before), positionOf(before), text}); }
  void replace(std::size_t token, const QString& text)
  {
    m_edits.push_back({positionOf(token), positionOf(token) + m_tokens[token].text.size(), text});
  }

  void rewriteDate(std::size_t at)
  {
    const QStringView text = m_tokens[at].text;
    if (!isShortForm(text))
      return replace(at, dateLiteral(text));
    const qsizetype position = positionOf(at);
    m_edits.push_back({position, position + 1, u"'"_s});
    m_edits.push_back({position + text.size() - 1, position + text.size(), u"'"_s});
  }

  void rewriteWord(std::size_t at)
  {
    if (const auto cint = callOf(at, "cint"_L1))
      rewriteOneArgument(at, *cint, u"cast"_s, u" as integer)"_s);
    else if (const auto isnull = callOf(at, "isnull"_L1))
      rewriteOneArgument(at, *isnull, u"("_s, u") is null)"_s);
    else if (const auto convert = callOf(at, "convert"_L1))
      rewriteConvert(at, *convert);
    else if (m_tokens[at].isWord("select"_L1))
      rewriteTop(at);
    else if (m_target == Target::PostgreSql)
      rewriteForPostgreSql(at);
  }

  // PostgreSQL: quoted names are not folded to lower case, and a backslash in a pattern is an escape character.
  void rewriteForPostgreSql(std::size_t at)
  {
    const QStringView text = m_tokens[at].text;
    if (text[0] == u'[' || text[0] == u'"')
      replace(at, quotedName(text));
    else if (m_tokens[at].isWord("by"_L1) && at > 0 && m_tokens[at - 1].isWord("order"_L1))
      rewriteOrder(at);
    else if (m_tokens[at].isWord("like"_L1) && at + 1 < m_tokens.size() && m_tokens[at + 1].kind == SqlToken::Text &&
             m_tokens[at + 1].text.contains(u'\\'))
      replace(at + 1, m_tokens[at + 1].text.toString().replace(u'\\', u"\\\\"_s));
  }

  // The position of the opening bracket if a call of this function starts at `at`.
  std::optional<std::size_t> callOf(std::size_t at, QLatin1String name) const
  {
    if (!m_tokens[at].isWord(name))
      return std::nullopt;
    const std::size_t open = at + 1;
    return open < m_tokens.size() && m_tokens[open].isSymbol(u'(') ? std::optional(open) : std::nullopt;
  }

  // cint(x) becomes cast(x as integer); isnull(x) becomes ((x) is null).
  void rewriteOneArgument(std::size_t name, std::size_t open, const QString& before, const QString& after)
  {
    const auto close = closingBracket(m_tokens, open);
    if (!close)
      return;
    replace(name, before);
    replace(*close, after);
  }

  // convert(int,x) becomes cast(x as integer).
  void rewriteConvert(std::size_t name, std::size_t open)
  {
    const std::size_t type = open + 1;
    if (type >= m_tokens.size() || !m_tokens[type].isWord("int"_L1))
      return;
    const std::size_t comma = type + 1;
    const auto close = closingBracket(m_tokens, open);
    if (comma >= m_tokens.size() || !m_tokens[comma].isSymbol(u',') || !close)
      return;
    replace(name, u"cast"_s);
    replace(type, {});
    replace(comma, {});
    replace(*close, u" as integer)"_s);
  }

  // "select top n ..." becomes "select ... limit n", at the end of its own select: before the
  // bracket that closes it, or of what ends the statement.
  void rewriteTop(std::size_t select)
  {
    const std::size_t top = select + 1;
    if (top >= m_tokens.size() || !m_tokens[top].isWord("top"_L1))
      return;
    const std::size_t count = top + 1;
    if (count >= m_tokens.size() || m_tokens[count].kind != SqlToken::Number)
      return;
    replace(top, {});
    replace(count, {});
    const qsizetype end = positionOf(endOfSelect(count));
    m_edits.push_back({end, end, u" limit %1 "_s.arg(m_tokens[count].text), 1});
  }

  // The suite expects null before all values, PostgreSQL sorts it after them.
  void rewriteOrder(std::size_t by)
  {
    const std::size_t end = endOfSelect(by);
    int depth = 0;
    for (std::size_t at = by + 1; at <= end; ++at) {
      if (at < end && m_tokens[at].isSymbol(u'('))
        ++depth;
      else if (at < end && m_tokens[at].isSymbol(u')'))
        --depth;
      if (at == end || (depth == 0 && m_tokens[at].isSymbol(u',')))
        insert(at, m_tokens[at - 1].isWord("desc"_L1) ? u" nulls last "_s : u" nulls first "_s);
    }
  }

  std::size_t endOfSelect(std::size_t inside) const
  {
    int depth = 0;
    std::size_t end = inside;
    for (; end < m_tokens.size(); ++end) {
      if (m_tokens[end].isSymbol(u'('))
        ++depth;
      else if ((m_tokens[end].isSymbol(u')') && depth-- == 0) || m_tokens[end].isSymbol(u';'))
        break;
    }
    return end;
  }

  // An insertion sorts before a replacement of the token after it.
  std::optional<QString> written()
  {
    std::stable_sort(m_edits.begin(), m_edits.end(), [](const SqlEdit& a, const SqlEdit& b) {
      return std::tuple(a.from, a.to, a.rank) < std::tuple(b.from, b.to, b.rank);
    });
    QString sql;
    sql.reserve(m_sql.size() + 16 * qsizetype(m_edits.size()));
    qsizetype done = 0;
    for (const SqlEdit& edit : m_edits) {
      if (edit.from < done)
        return std::nullopt;
      sql.append(m_sql.sliced(done, edit.from - done)).append(edit.text);
      done = edit.to;
    }
    return sql.append(m_sql.sliced(done));
  }

  QStringView m_sql;
  const Tokens& m_tokens;
  Target m_target;
  std::vector<SqlEdit> m_edits;
};

} // namespace

tl::expected<Translation, QString> translate(const QString& sql, Target target)
{
  const Tokens tokens = SqlTokens::read(sql);
  if (const auto refusal = refusalOf(sql, tokens, target))
    return tl::unexpected(*refusal);
  const bool isQuery = tokens.front().isWord("select"_L1);
  if (target == Target::SqlServer)
    return Translation{sql, isQuery};
  const auto rewritten = Rewriter(sql, tokens, target).rewritten();
  if (!rewritten)
    return tl::unexpected(u"语句不完整：%1"_s.arg(sql.left(60)));
  return Translation{*rewritten, isQuery};
}

} // namespace DialectTranslator
