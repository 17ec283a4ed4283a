#include "database/SqlArithmetic.h"

#include "database/SqliteArithmetic.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace SqlArithmetic {
namespace {

using Tokens = std::vector<SqlToken>;

constexpr std::size_t None = std::size_t(-1);
constexpr char Negate = 'n';

// The keywords after which a new expression starts, by their first letter. Where an operand is expected, all other
// words are names.
constexpr std::size_t MostOfALetter = 5;
using WordsOfALetter = std::array<QLatin1String, MostOfALetter>;
constexpr auto Openers = [] {
  std::array<WordsOfALetter, 26> words = {};
  for (const QLatin1String word :
       {"all"_L1,    "and"_L1,  "as"_L1,    "between"_L1, "by"_L1,     "delete"_L1,    "distinct"_L1, "else"_L1,  "escape"_L1,
        "except"_L1, "from"_L1, "glob"_L1,  "having"_L1,  "in"_L1,     "intersect"_L1, "insert"_L1,   "into"_L1,  "is"_L1,
        "join"_L1,   "like"_L1, "limit"_L1, "not"_L1,     "offset"_L1, "on"_L1,        "or"_L1,       "order"_L1, "returning"_L1,
        "select"_L1, "set"_L1,  "then"_L1,  "union"_L1,   "update"_L1, "using"_L1,     "values"_L1,   "when"_L1,  "where"_L1}) {
    WordsOfALetter& same = words[std::size_t(word.data()[0] - 'a')];
    std::size_t at = 0;
    while (!same[at].isEmpty())
      ++at;
    same[at] = word;
  }
  return words;
}();

bool opensExpression(const SqlToken& token)
{
  const int letter = (token.text[0].unicode() | 0x20) - 'a';
  if (letter < 0 || letter >= 26)
    return false;
  const WordsOfALetter& words = Openers[std::size_t(letter)];
  return std::any_of(words.begin(), words.end(), [&token](QLatin1String word) { return !word.isEmpty() && token.isWord(word); });
}

int precedenceOf(char operation)
{
  return operation == Negate ? 3 : operation == '*' ? 2 : 1;
}

// Reads the tokens once, with a stack of the open brackets instead of recursion: a statement may be nested as deeply
// as it is long.
class Reader {
public:
  Reader(QStringView sql, const Tokens& tokens, std::vector<SqlEdit>& edits) : m_sql(sql), m_tokens(tokens), m_edits(edits)
  {
    m_frames.reserve(16);
    m_program.reserve(64);
    open(Frame::Statement, None);
  }

  void read()
  {
    for (m_at = 0; m_at < m_tokens.size(); ++m_at)
      if (top().isComplete)
        readAfterOperand();
      else
        readOperand();
    while (m_frames.size() > 1) {
      close();
      top().isForeign = true; // an unclosed bracket may contain the end of the statement
    }
    finish(m_at);
  }

private:
  // An open bracket, call or case, and the expression that is being read directly inside it.
  struct Frame {
    enum Kind : quint8 { Statement, Bracket, Call, Case };

    Kind kind;
    std::size_t opener; // where it starts; for a call the name
    // Where the expression's own begin in the vectors that all expressions share.
    std::size_t program;
    std::size_t operators;
    std::size_t removals;
    std::size_t select = None;     // its last select
    std::size_t start = None;      // of the expression
    std::size_t groupStart = None; // of the bracket that was taken into the expression last
    std::size_t groupEnd = None;
    bool isPlain = true;       // holds one expression and nothing else, so far
    bool isSummed = false;     // a derived table whose columns are only added up
    bool isComplete = false;   // the expression ends with an operand
    bool isArithmetic = false; // contains an operation
    bool isForeign = false;    // with an operation that is not ours
  };
  // A token of an expression that is left out if the expression is rewritten, or becomes a comma.
  struct Removal {
    std::size_t token;
    bool isComma;
  };

  Frame& top() { return m_frames.back(); }
  bool isSymbol(std::size_t at, char16_t c) const { return at < m_tokens.size() && m_tokens[at].isSymbol(c); }
  bool isWord(std::size_t at, QLatin1String word) const { return at < m_tokens.size() && m_tokens[at].isWord(word); }
  bool isName(std::size_t at) const { return at < m_tokens.size() && m_tokens[at].kind == SqlToken::Word; }
  qsizetype startOf(std::size_t token) const { return m_tokens[token].text.data() - m_sql.data(); }
  qsizetype endOf(std::size_t token) const { return startOf(token) + m_tokens[token].text.size(); }

  void open(Frame::Kind kind, std::size_t opener)
  {
    m_frames.push_back(
        {.kind = kind, .opener = opener, .program = m_program.size(), .operators = m_operators.size(), .removals = m_removals.size()});
  }

  // --- one token ---

  void readOperand()
  {
    const SqlToken& token = m_tokens[m_at];
    switch (token.kind) {
    case SqlToken::Word: return readWord();
    case SqlToken::Symbol: return readSign();
    default: operand(m_at);
    }
  }

  void readWord()
  {
    if (isWord(m_at, "case"_L1))
      return open(Frame::Case, m_at);
    if (endsCase())
      return close();
    if (opensExpression(m_tokens[m_at]))
      return delimit();
    const std::size_t name = m_at;
    while (isSymbol(m_at + 1, u'.') && (isName(m_at + 2) || isSymbol(m_at + 2, u'*')))
      m_at += 2;
    if (!isSymbol(m_at + 1, u'('))
      return operand(name);
    open(Frame::Call, name);
    ++m_at;
  }

  void readSign()
  {
    switch (m_tokens[m_at].text[0].unicode()) {
    case u'(': open(Frame::Bracket, m_at); return markSummed();
    case u')': return closeBracket();
    case u'*': return operand(m_at); // all columns
    case u'-': m_operators.push_back(Negate); [[fallthrough]];
    case u'+': begin(m_at); return m_removals.push_back({m_at, false});
    case u'~':
      begin(m_at);
      top().isForeign = true;
      return;
    default: return delimit();
    }
  }

  void readAfterOperand()
  {
    const SqlToken& token = m_tokens[m_at];
    if (token.kind == SqlToken::Word)
      return endsCase() ? close() : token.isWord("collate"_L1) ? continueForeign() : delimit();
    // x'00' is one operand; with a space between them the text is a name.
    if (token.kind == SqlToken::Text)
      return endOf(m_at - 1) == startOf(m_at) ? void() : delimit();
    if (token.kind != SqlToken::Symbol) {
      delimit();
      return readOperand();
    }
    switch (token.text[0].unicode()) {
    case u'+':
    case u'-':
    case u'*': return operation(char(token.text[0].unicode()));
    case u'/':
    case u'%': return continueForeign();
    case u'|': return isSymbol(m_at + 1, u'|') ? ++m_at, continueForeign() : delimit();
    case u')': return closeBracket();
    case u'(': delimit(); return readOperand();
    default: return delimit();
    }
  }

  bool endsCase() { return top().kind == Frame::Case && m_tokens[m_at].isWord("end"_L1); }

  // --- the expression ---

  void begin(std::size_t token)
  {
    if (top().start == None)
      top().start = token;
  }

  void operand(std::size_t first)
  {
    begin(first);
    m_program.push_back('v');
    endOperand();
  }

  void endOperand()
  {
    Frame& frame = top();
    frame.isComplete = true;
    while (m_operators.size() > frame.operators && m_operators.back() == Negate)
      takeOperator();
  }

  void operation(char sign)
  {
    Frame& frame = top();
    while (m_operators.size() > frame.operators && precedenceOf(m_operators.back()) >= precedenceOf(sign))
      takeOperator();
    m_operators.push_back(sign);
    m_removals.push_back({m_at, true});
    frame.isArithmetic = true;
    frame.isComplete = false;
  }

  void continueForeign()
  {
    top().isForeign = true;
    top().isComplete = false;
  }

  void takeOperator()
  {
    m_program.push_back(m_operators.back());
    m_operators.pop_back();
  }

  void takeOperators()
  {
    while (m_operators.size() > top().operators)
      takeOperator();
  }

  bool isOurs() { return top().isComplete && top().isArithmetic && !top().isForeign; }

  void delimit()
  {
    finish(m_at);
    Frame& frame = top();
    frame.isPlain = false;
    if (!isWord(m_at, "select"_L1))
      return;
    frame.select = m_at;
    // Before "-a", the count would be read as the first operand.
    if (isWord(m_at + 1, "top"_L1) && m_at + 2 < m_tokens.size() && m_tokens[m_at + 2].kind == SqlToken::Number)
      m_at += 2;
  }

  // The expression ends before token `end`, and a new one may start.
  void finish(std::size_t end)
  {
    Frame& frame = top();
    takeOperators();
    if (isOurs())
      writeCall(end);
    forget();
    frame.start = frame.groupStart = frame.groupEnd = None;
    frame.isComplete = frame.isArithmetic = frame.isForeign = false;
  }

  void forget()
  {
    const Frame& frame = top();
    m_program.resize(frame.program);
    m_operators.resize(frame.operators);
    m_removals.resize(frame.removals);
  }

  // --- brackets ---

  void closeBracket()
  {
    while (top().kind == Frame::Case)
      close();
    if (top().kind == Frame::Statement)
      return delimit();
    if (top().kind == Frame::Call)
      writeSum();
    else if (isGroup())
      return takeGroup();
    close();
  }

  // Closes the innermost frame, which is one operand of the expression around it.
  void close()
  {
    finish(m_at);
    const std::size_t opener = top().opener;
    m_frames.pop_back();
    operand(opener);
  }

  // A bracket that holds only arithmetic, inside more arithmetic.
  bool isGroup()
  {
    const Frame& around = m_frames[m_frames.size() - 2];
    const bool isFollowedByForeign =
        isSymbol(m_at + 1, u'/') || isSymbol(m_at + 1, u'%') || isSymbol(m_at + 1, u'|') || isWord(m_at + 1, "collate"_L1);
    return isOurs() && top().isPlain && !around.isForeign && !isFollowedByForeign;
  }

  void takeGroup()
  {
    takeOperators();
    const std::size_t opener = top().opener;
    m_frames.pop_back();
    m_removals.push_back({opener, false});
    m_removals.push_back({m_at, false});
    begin(opener);
    top().isArithmetic = true;
    top().groupStart = opener;
    top().groupEnd = m_at;
    endOperand();
  }

  // --- derived tables ---

  // "select sum(a) as x,sum(b) as y from (select": the columns must not be rounded before they are summed. With an
  // order by, columns must stay numbers, not texts.
  void markSummed()
  {
    const Frame& around = m_frames[m_frames.size() - 2];
    if (m_at == 0 || !isWord(m_at - 1, "from"_L1) || !isWord(m_at + 1, "select"_L1) || around.select == None)
      return;
    std::size_t at = around.select + 1;
    for (bool isFirst = true; isFirst || isSymbol(at, u','); isFirst = false) {
      at += isFirst ? 0 : 1;
      if (!isWord(at, "sum"_L1) || !isSymbol(at + 1, u'(') || !isName(at + 2) || !isSymbol(at + 3, u')'))
        return;
      at += isWord(at + 4, "as"_L1) && isName(at + 5) ? 6 : 4;
    }
    if (at == m_at - 1)
      top().isSummed = endsSummed();
  }

  // After the derived table at m_at follows at most its name, and it has no "order by" inside.
  bool endsSummed() const
  {
    std::size_t at = m_at;
    for (int depth = 0; at < m_tokens.size(); ++at) {
      if (isSymbol(at, u'('))
        ++depth;
      else if (isSymbol(at, u')') && --depth == 0)
        break;
      else if (isWord(at, "order"_L1))
        return false;
    }
    at += isWord(at + 1, "as"_L1) ? 2 : 1;
    at += isName(at) ? 1 : 0;
    return at >= m_tokens.size() || isSymbol(at, u')') || isSymbol(at, u';');
  }

  // A complete column of such a table.
  bool isSummedColumn(const Frame& frame, std::size_t first, std::size_t end) const
  {
    return frame.isSummed && first > 0 && (isWord(first - 1, "select"_L1) || isSymbol(first - 1, u',')) &&
           (isWord(end, "as"_L1) || isSymbol(end, u',') || isWord(end, "from"_L1));
  }

  // --- writing ---

  void insert(qsizetype at, const QString& text) { m_edits.push_back({at, at, text}); }
  void replace(std::size_t token, const QString& text) { m_edits.push_back({startOf(token), endOf(token), text}); }

  QString program() const
  {
    const std::size_t from = m_frames.back().program;
    return u'\'' + QString::fromLatin1(m_program.data() + from, qsizetype(m_program.size() - from)) + u"',"_s;
  }

  // Brackets around the whole expression stay: "in (a-b)".
  void writeCall(std::size_t end)
  {
    const Frame& frame = top();
    const bool isBracketed = frame.groupStart == frame.start && frame.groupEnd + 1 == end;
    const char* const function = isSummedColumn(frame, frame.start, end) ? SqliteArithmetic::Part : SqliteArithmetic::Value;
    insert(isBracketed ? endOf(frame.start) : startOf(frame.start), u' ' + QLatin1String(function) + u'(' + program());
    writeOperands(isBracketed ? 2 : 0);
    insert(isBracketed ? startOf(frame.groupEnd) : endOf(end - 1), u")"_s);
  }

  // The last removals, as many as `kept`, are left out.
  void writeOperands(std::size_t kept)
  {
    for (std::size_t i = top().removals; i + kept < m_removals.size(); ++i)
      replace(m_removals[i].token, m_removals[i].isComma ? u","_s : QString());
  }

  // "sum(a*b)" computes and adds up in one call; a sum without arithmetic is exact already.
  void writeSum()
  {
    const Frame& frame = top();
    if (!frame.isPlain || !frame.isComplete || frame.isForeign || !isWord(frame.opener, "sum"_L1) || !isSymbol(frame.opener + 1, u'('))
      return;
    const bool isColumn = isSummedColumn(m_frames[m_frames.size() - 2], frame.opener, m_at + 1);
    if (!frame.isArithmetic && !isColumn)
      return;
    takeOperators();
    replace(frame.opener, QLatin1String(isColumn ? SqliteArithmetic::PartSum : SqliteArithmetic::Sum));
    insert(startOf(frame.start), program());
    writeOperands(0);
    top().isForeign = true; // written
  }

  QStringView m_sql;
  const Tokens& m_tokens;
  std::vector<SqlEdit>& m_edits;
  std::size_t m_at = 0;
  std::vector<Frame> m_frames;
  // Of all open expressions, the outer ones first.
  std::vector<char> m_program;
  std::vector<char> m_operators;
  std::vector<Removal> m_removals;
};

} // namespace

void rewrite(QStringView sql, const Tokens& tokens, std::vector<SqlEdit>& edits)
{
  Reader(sql, tokens, edits).read();
}

} // namespace SqlArithmetic
