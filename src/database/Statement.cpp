#include "database/Statement.h"

#include "database/SqlTokens.h"
#include "platform/NumberText.h"

void Statement::build(QStringView format, const Argument* arguments)
{
  m_sql.reserve(format.size() + 32);
  QChar quote;
  qsizetype opened = 0; // where the quoted token begins in the statement
  qsizetype done = 0;   // how much of the format has been appended
  bool holdsValue = false;
  for (qsizetype i = 0; i < format.size(); ++i) {
    const QChar c = format[i];
    if (c == u'{' && i + 1 < format.size() && format[i + 1] == u'}') {
      m_sql += format.sliced(done, i - done);
      done = i + 2;
      ++i;
      const Argument& argument = *arguments++;
      if (argument.fragment) {
        *this += *argument.fragment;
        continue;
      }
      if (quote.isNull())
        m_values.push_back({m_sql.size(), argument.text.size(), argument.kind});
      holdsValue = true;
      m_sql += argument.text;
    } else if (quote.isNull() && (c == u'\'' || c == u'#')) {
      quote = c;
      opened = m_sql.size() + i - done;
      holdsValue = false;
    } else if (c == quote) {
      if (holdsValue)
        m_values.push_back({opened, m_sql.size() + i - done + 1 - opened, c == u'#' ? Kind::Date : Kind::Text});
      quote = QChar();
    }
  }
  m_sql += format.sliced(done);
}

Statement Statement::joined(const QList<Statement>& parts, SqlLiteral separator)
{
  Statement whole;
  for (const Statement& part : parts) {
    if (!whole.isEmpty())
      whole.m_sql += separator.view();
    whole += part;
  }
  return whole;
}

Statement& Statement::operator+=(const Statement& part)
{
  const qsizetype shift = m_sql.size();
  m_sql += part.m_sql;
  for (const ValueSpan& value : part.m_values)
    m_values.push_back({value.at + shift, value.size, value.kind});
  return *this;
}

std::optional<QString> Statement::violation() const
{
  for (const ValueSpan& value : m_values)
    if (const QStringView text = QStringView(m_sql).sliced(value.at, value.size); !isOneToken(text, value.kind))
      return text.toString();
  return std::nullopt;
}

// The literals around a value are parsed the same way whatever the value is, as long as it is one complete token. So
// it is enough to parse each value in its own quotes.
bool Statement::isOneToken(QStringView text, Kind kind)
{
  if (kind == Kind::Number)
    return NumberText::isNumeric(text) && !text.front().isSpace() && !text.back().isSpace() && !text.contains(u'e', Qt::CaseInsensitive);
  static constexpr SqlToken::Kind Expected[] = {SqlToken::Text, SqlToken::Date, SqlToken::Word};
  const std::vector<SqlToken> tokens = SqlTokens::read(text);
  return tokens.size() == 1 && tokens[0].kind == Expected[int(kind)] && !tokens[0].open && tokens[0].text.size() == text.size();
}
