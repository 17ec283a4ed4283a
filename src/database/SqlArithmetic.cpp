#include "database/SqlArithmetic.h"

#include "database/SqliteArithmetic.h"

#include <algorithm>
#include <array>

namespace SqlArithmetic {
namespace {

using Tokens = std::vector<SqlToken>;

constexpr std::size_t None = std::size_t(-1);
constexpr char Negate = 'n';

// The words after which a new expression starts, by their first letter. All other words are names, where
// an operand is expected.
constexpr std::size_t MostOfALetter = 5;
using WordsOfALetter = std::array<QLatin1String, MostOfALetter>;
constexpr auto Openers = [] {
  std::array<WordsOfALetter, 26> words = {};
  for (const QLatin1String word :
       {QLatin1String("all"),    QLatin1String("and"),       QLatin1String("as"),     QLatin1String("between"), QLatin1String("by"),
        QLatin1String("delete"), QLatin1String("distinct"),  QLatin1String("else"),   QLatin1String("escape"),  QLatin1String("except"),
        QLatin1String("from"),   QLatin1String("glob"),      QLatin1String("having"), QLatin1String("in"),      QLatin1String("intersect"),
        QLatin1String("insert"), QLatin1String("into"),      QLatin1String("is"),     QLatin1String("join"),    QLatin1String("like"),
        QLatin1String("limit"),  QLatin1String("not"),       QLatin1String("offset"), QLatin1String("on"),      QLatin1String("or"),
        QLatin1String("order"),  QLatin1String("returning"), QLatin1String("select"), QLatin1String("set"),     QLatin1String("then"),
        QLatin1String("union"),  QLatin1String("update"),    QLatin1String("using"),  QLatin1String("values"),  QLatin1String("when"),
        QLatin1String("where")}) {
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

// Reads the tokens once, with a stack of the brackets that are open in place of recursion: a statement
// may be nested as deep as it is long.
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
      top().isForeign = true; // what never closes may hold the end of the statement
    }
    finish(m_at);
  }

private:
  // What is open, and the expression that is being read directly inside it.
  struct Frame {
    enum Kind : quint8 { Statement, Bracket, Call, Case };

    Kind kind;
    std::size_t opener; // where it starts; of a call the name
    // Where those of the expression begin in what all expressions share.
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
    bool isArithmetic = false; // and has an operation
    bool isForeign = false;    // with an operation that is none of ours
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
    if (isWord(m_at, QLatin1String("case")))
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
      return endsCase() ? close() : token.isWord(QLatin1String("collate")) ? continueForeign() : delimit();
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

  bool endsCase() { return top().kind == Frame::Case && m_tokens[m_at].isWord(QLatin1String("end")); }

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
    if (!isWord(m_at, QLatin1String("select")))
      return;
    frame.select = m_at;
    // Before "-a", the count would be read as the first operand.
    if (isWord(m_at + 1, QLatin1String("top")) && m_at + 2 < m_tokens.size() && m_tokens[m_at + 2].kind == SqlToken::Number)
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

  // Ends what is open: to the expression around it, it is one operand.
  void close()
  {
    finish(m_at);
    const std::size_t opener = top().opener;
    m_frames.pop_back();
    operand(opener);
  }

  // A bracket that holds nothing but arithmetic, as a part of more arithmetic.
  bool isGroup()
  {
    const Frame& around = m_frames[m_frames.size() - 2];
    const bool isFollowedByForeign =
        isSymbol(m_at + 1, u'/') || isSymbol(m_at + 1, u'%') || isSymbol(m_at + 1, u'|') || isWord(m_at + 1, QLatin1String("collate"));
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

  // "select sum(a) as x,sum(b) as y from (select": the sums must not lose what the columns round off.
  // An order is one of numbers, and there a column may be text.
  void markSummed()
  {
    const Frame& around = m_frames[m_frames.size() - 2];
    if (m_at == 0 || !isWord(m_at - 1, QLatin1String("from")) || !isWord(m_at + 1, QLatin1String("select")) || around.select == None)
      return;
    std::size_t at = around.select + 1;
    for (bool isFirst = true; isFirst || isSymbol(at, u','); isFirst = false) {
      at += isFirst ? 0 : 1;
      if (!isWord(at, QLatin1String("sum")) || !isSymbol(at + 1, u'(') || !isName(at + 2) || !isSymbol(at + 3, u')'))
        return;
      at += isWord(at + 4, QLatin1String("as")) && isName(at + 5) ? 6 : 4;
    }
    if (at == m_at - 1)
      top().isSummed = endsSummed();
  }

  // After the derived table at m_at comes at most its name, and it has no order inside.
  bool endsSummed() const
  {
    std::size_t at = m_at;
    for (int depth = 0; at < m_tokens.size(); ++at) {
      if (isSymbol(at, u'('))
        ++depth;
      else if (isSymbol(at, u')') && --depth == 0)
        break;
      else if (isWord(at, QLatin1String("order")))
        return false;
    }
    at += isWord(at + 1, QLatin1String("as")) ? 2 : 1;
    at += isName(at) ? 1 : 0;
    return at >= m_tokens.size() || isSymbol(at, u')') || isSymbol(at, u';');
  }

  // A whole column of such a table.
  bool isSummedColumn(const Frame& frame, std::size_t first, std::size_t end) const
  {
    return frame.isSummed && first > 0 && (isWord(first - 1, QLatin1String("select")) || isSymbol(first - 1, u',')) &&
           (isWord(end, QLatin1String("as")) || isSymbol(end, u',') || isWord(end, QLatin1String("from")));
  }

  // --- writing ---

  void insert(qsizetype at, const QString& text) { m_edits.push_back({at, at, text}); }
  void replace(std::size_t token, const QString& text) { m_edits.push_back({startOf(token), endOf(token), text}); }

  QString program() const
  {
    const std::size_t from = m_frames.back().program;
    return u'\'' + QString::fromLatin1(m_program.data() + from, qsizetype(m_program.size() - from)) + QStringLiteral("',");
  }

  // Brackets around all of it stay: "in (a-b)".
  void writeCall(std::size_t end)
  {
    const Frame& frame = top();
    const bool isBracketed = frame.groupStart == frame.start && frame.groupEnd + 1 == end;
    const char* const function = isSummedColumn(frame, frame.start, end) ? SqliteArithmetic::Part : SqliteArithmetic::Value;
    insert(isBracketed ? endOf(frame.start) : startOf(frame.start), u' ' + QLatin1String(function) + u'(' + program());
    writeOperands(isBracketed ? 2 : 0);
    insert(isBracketed ? startOf(frame.groupEnd) : endOf(end - 1), QStringLiteral(")"));
  }

  // The last removals, as many as `kept`, are left out.
  void writeOperands(std::size_t kept)
  {
    for (std::size_t i = top().removals; i + kept < m_removals.size(); ++i)
      replace(m_removals[i].token, m_removals[i].isComma ? QStringLiteral(",") : QString());
  }

  // "sum(a*b)" computes and adds up in one; a sum without arithmetic is exact as it is.
  void writeSum()
  {
    const Frame& frame = top();
    if (!frame.isPlain || !frame.isComplete || frame.isForeign || !isWord(frame.opener, QLatin1String("sum")) ||
        !isSymbol(frame.opener + 1, u'('))
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
  // Of all expressions that are open, the outer ones first.
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
