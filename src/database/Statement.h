#pragma once

#include "platform/Currency.h"

#include <QList>
#include <QString>

#include <concepts>
#include <optional>
#include <type_traits>
#include <vector>

// SQL as it is written in the sources. Only a literal converts to it, so that no value is ever taken for SQL.
class SqlLiteral {
public:
  constexpr SqlLiteral() = default;
  template <std::size_t N> consteval SqlLiteral(const char16_t (&sql)[N]) : m_sql(sql), m_size(N - 1) {}

  constexpr QStringView view() const { return QStringView(m_sql, m_size); }
  constexpr bool isEmpty() const { return m_size == 0; }

private:
  const char16_t* m_sql = u"";
  qsizetype m_size = 0;
};

// The name of a table or a column.
struct SqlName {
  explicit SqlName(QString name) : text(std::move(name)) {}
  explicit SqlName(const char* name) : text(QLatin1String(name)) {}
  QString text;
};

// A number as it is written in SQL, without quotes.
struct SqlNumber {
  explicit SqlNumber(QString number) : text(std::move(number)) {}
  explicit SqlNumber(Currency amount) : text(amount.toText()) {}
  explicit SqlNumber(std::integral auto number) : text(QString::number(number)) {}
  QString text;
};

class Statement;

template <typename Value>
concept SqlText = std::convertible_to<const Value&, QString>;
template <typename Value>
concept SqlArgument = SqlText<Value> || std::same_as<Value, SqlName> || std::same_as<Value, SqlNumber> || std::same_as<Value, Statement>;

// A literal whose places "{}" fit the values that are put into them: as many places as values, a text inside quotes
// ('{}', '{}%') or a date's delimiters (#{}#), everything else outside. The compiler checks it.
template <SqlArgument... Values> class StatementFormat {
public:
  template <std::size_t N> consteval StatementFormat(const char16_t (&sql)[N]) : m_sql(sql, N - 1)
  {
    constexpr bool isText[] = {SqlText<Values>..., false};
    std::size_t place = 0;
    char16_t quote = 0;
    for (std::size_t i = 0; i + 1 < N; ++i) {
      if (sql[i] == u'{' && sql[i + 1] == u'}') {
        if (place == sizeof...(Values) || isText[place] != (quote != 0))
          throw "a place of the statement does not fit its value";
        ++place;
      } else if (quote != 0) {
        quote = sql[i] == quote ? 0 : quote;
      } else if (sql[i] == u'\'' || sql[i] == u'#') {
        quote = sql[i];
      }
    }
    if (place != sizeof...(Values) || quote != 0)
      throw "the statement has too few places, or a quote does not end";
  }

  QStringView sql() const { return m_sql; }

private:
  QStringView m_sql;
};

// One SQL statement, or a part of one: literals with values in their places. It is put together as plain text,
// as all programs of the suite do it: nothing in a value is escaped. But every value has to stay the one
// token that its place has for it, a text in its quotes, a number, a name; `violation` says whether all do, and
// ModuleADO asks before it runs a statement.
class Statement {
public:
  Statement() = default;
  Statement(SqlLiteral sql) : m_sql(sql.view().toString()) {}
  template <SqlArgument... Values> Statement(StatementFormat<std::type_identity_t<Values>...> format, const Values&... values)
  {
    const Argument arguments[] = {Argument(values)..., Argument(QString())};
    build(format.sql(), arguments);
  }

  // The parts one after another, with `separator` between them.
  static Statement joined(const QList<Statement>& parts, SqlLiteral separator);

  Statement& operator+=(const Statement& part);
  friend Statement operator+(Statement left, const Statement& right) { return std::move(left += right); }

  const QString& sql() const { return m_sql; }
  bool isEmpty() const { return m_sql.isEmpty(); }
  // The first value that is more, or other, than the token of its place, as it appears in the statement.
  std::optional<QString> violation() const;

private:
  enum class Kind { Text, Date, Name, Number };
  // Where the token of a value lies in the statement, quotes included.
  struct ValueSpan {
    qsizetype at;
    qsizetype size;
    Kind kind;
  };
  struct Argument {
    explicit Argument(const SqlText auto& value) : text(value), kind(Kind::Text) {}
    explicit Argument(const SqlName& value) : text(value.text), kind(Kind::Name) {}
    explicit Argument(const SqlNumber& value) : text(value.text), kind(Kind::Number) {}
    explicit Argument(const Statement& value) : fragment(&value) {}
    QString text = {};
    const Statement* fragment = nullptr;
    Kind kind = Kind::Text;
  };

  void build(QStringView format, const Argument* arguments);
  static bool isOneToken(QStringView text, Kind kind);

  QString m_sql;
  std::vector<ValueSpan> m_values;
};

// A text value on its own, as it is written in a list of values.
inline Statement sqlText(const QString& value)
{
  return Statement(u"'{}'", value);
}

// The same for a number.
inline Statement sqlNumber(const SqlNumber& value)
{
  return Statement(u"{}", value);
}
