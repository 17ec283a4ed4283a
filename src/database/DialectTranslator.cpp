#include "database/DialectTranslator.h"

#include "database/SqlTokens.h"
#include "platform/DateText.h"

#include <optional>

namespace DialectTranslator {
namespace {

using Tokens = std::vector<SqlToken>;

bool hasBrokenCharacter(const QString& sql)
{
  for (qsizetype i = 0; i < sql.size(); ++i) {
    if (sql[i].isNull() || sql[i].isLowSurrogate())
      return true;
    if (sql[i].isHighSurrogate() && (++i == sql.size() || !sql[i].isLowSurrogate()))
      return true;
  }
  return false;
}

std::size_t skipBlanks(const Tokens& tokens, std::size_t at)
{
  while (at < tokens.size() && tokens[at].kind == SqlToken::Blank)
    ++at;
  return at;
}

QString refusalOf(const QString& sql, const Tokens& tokens)
{
  if (hasBrokenCharacter(sql))
    return QStringLiteral("语句含有无效字符");
  for (const SqlToken& token : tokens) {
    if (token.open)
      return QStringLiteral("语句中的引号或日期没有结束：%1").arg(token.text.left(60));
    // The system writes none: it is a value out of its quotes, or two signs ("a--5"), and would cut
    // the rest of the statement off.
    if (token.kind == SqlToken::Blank && !token.text[0].isSpace())
      return QStringLiteral("语句中不允许注释：%1").arg(token.text.left(60));
  }
  const std::size_t first = skipBlanks(tokens, 0);
  static constexpr const char* Allowed[] = {"select", "insert", "update", "delete"};
  bool allowed = false;
  for (const char* word : Allowed)
    allowed = allowed || (first < tokens.size() && tokens[first].isWord(word));
  if (!allowed)
    return QStringLiteral("只允许 select、insert、update、delete 语句");
  for (std::size_t at = 0; at < tokens.size(); ++at)
    if (tokens[at].isSymbol(';') && skipBlanks(tokens, at + 1) < tokens.size())
      return QStringLiteral("一次只允许一条语句");
  return {};
}

// Position of the bracket that closes the one at `open`; nothing if it is missing.
std::optional<std::size_t> closingBracket(const Tokens& tokens, std::size_t open)
{
  int depth = 0;
  for (std::size_t at = open; at < tokens.size(); ++at) {
    if (tokens[at].isSymbol('('))
      ++depth;
    else if (tokens[at].isSymbol(')') && --depth == 0)
      return at;
  }
  return std::nullopt;
}

SqlToken symbol(const QString& text)
{
  return {SqlToken::Symbol, text};
}

QString dateLiteral(const QString& token)
{
  const QString inside = token.mid(1, token.size() - 2).trimmed();
  const auto date = DateText::parse(inside);
  return u'\'' + (date ? DateText::shortForm(*date) : QString(inside).replace(u'\'', QStringLiteral("''"))) + u'\'';
}

// Whether a function call of this name starts at `at`; then the position of its opening bracket.
std::optional<std::size_t> callOf(const Tokens& tokens, std::size_t at, const char* name)
{
  if (!tokens[at].isWord(name))
    return std::nullopt;
  const std::size_t open = skipBlanks(tokens, at + 1);
  return open < tokens.size() && tokens[open].isSymbol('(') ? std::optional(open) : std::nullopt;
}

// cint(x) becomes cast(x as integer); isnull(x) becomes (x) is null.
void rewriteOneArgument(Tokens& tokens, std::size_t name, std::size_t open, const QString& before, const QString& behind)
{
  const auto close = closingBracket(tokens, open);
  if (!close)
    return;
  tokens[name] = symbol(before);
  tokens[*close] = symbol(behind);
}

// convert(int,x) becomes cast(x as integer).
void rewriteConvert(Tokens& tokens, std::size_t name, std::size_t open)
{
  const std::size_t type = skipBlanks(tokens, open + 1);
  if (type >= tokens.size() || !tokens[type].isWord("int"))
    return;
  const std::size_t comma = skipBlanks(tokens, type + 1);
  const auto close = closingBracket(tokens, open);
  if (comma >= tokens.size() || !tokens[comma].isSymbol(',') || !close)
    return;
  tokens[name] = symbol(QStringLiteral("cast"));
  tokens[type] = symbol({});
  tokens[comma] = symbol({});
  tokens[*close] = symbol(QStringLiteral(" as integer)"));
}

// "select top n ..." becomes "select ... limit n", at the end of its own select: ahead of the
// bracket that closes it, or of what ends the statement.
void rewriteTop(Tokens& tokens, std::size_t select)
{
  const std::size_t top = skipBlanks(tokens, select + 1);
  if (top >= tokens.size() || !tokens[top].isWord("top"))
    return;
  const std::size_t count = skipBlanks(tokens, top + 1);
  if (count >= tokens.size() || tokens[count].kind != SqlToken::Number)
    return;
  const QString limit = QStringLiteral(" limit ") + tokens[count].text + u' ';
  tokens[top] = symbol({});
  tokens[count] = symbol({});
  int depth = 0;
  std::size_t end = count;
  for (; end < tokens.size(); ++end) {
    if (tokens[end].isSymbol('('))
      ++depth;
    else if ((tokens[end].isSymbol(')') && depth-- == 0) || tokens[end].isSymbol(';'))
      break;
  }
  tokens.insert(tokens.begin() + std::ptrdiff_t(end), symbol(limit));
}

void rewrite(Tokens& tokens)
{
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (tokens[at].kind == SqlToken::Date)
      tokens[at] = {SqlToken::Text, dateLiteral(tokens[at].text)};
    else if (const auto cint = callOf(tokens, at, "cint"))
      rewriteOneArgument(tokens, at, *cint, QStringLiteral("cast"), QStringLiteral(" as integer)"));
    else if (const auto isnull = callOf(tokens, at, "isnull"))
      rewriteOneArgument(tokens, at, *isnull, QStringLiteral("("), QStringLiteral(") is null)"));
    else if (const auto convert = callOf(tokens, at, "convert"))
      rewriteConvert(tokens, at, *convert);
    else if (tokens[at].isWord("select"))
      rewriteTop(tokens, at);
  }
}

} // namespace

Translation forEmbedded(const QString& sql)
{
  Tokens tokens = SqlTokens::read(sql);
  if (const QString refusal = refusalOf(sql, tokens); !refusal.isEmpty())
    return {{}, refusal};
  rewrite(tokens);
  return {SqlTokens::join(tokens), {}};
}

} // namespace DialectTranslator
