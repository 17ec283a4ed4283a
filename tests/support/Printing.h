#pragma once

#include "database/DatabaseError.h"
#include "database/RowSet.h"

#include <QByteArray>
#include <QDate>
#include <QStringList>

#include <ostream>
#include <string>

// A row of a value table: what is given, and what is expected.
using TextRow = std::pair<const char*, const char*>;

// How a failed expectation shows the texts and dates that it compared.

inline void PrintTo(const QString& text, std::ostream* out)
{
  *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(QStringView text, std::ostream* out)
{
  PrintTo(text.toString(), out);
}

// The error of a result; empty if there is none.
template <typename Value> QString errorOf(const tl::expected<Value, QString>& result)
{
  return result ? QString() : result.error();
}
template <typename Value> QString errorOf(const DatabaseResult<Value>& result)
{
  return result ? QString() : result.error().description;
}

// The values of a query's rows, "|" between them and a space between rows; or the error.
inline QString answerOf(const DatabaseResult<RowSet>& read)
{
  if (!read)
    return "error: " + read.error().description;
  QStringList rows;
  for (qint64 row = 0; row < read->rows(); ++row) {
    QStringList values;
    for (int i = 0; i < read->names().size(); ++i)
      values.append(read->value(row, i).isNull() ? "NULL" : read->value(row, i).toText());
    rows.append(values.join(u'|'));
  }
  return rows.join(u' ');
}

// For the message of an expectation.
inline std::string shown(QStringView text)
{
  return text.toString().toStdString();
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
  *out << bytes.toPercentEncoding(" =").toStdString();
}

inline void PrintTo(const QDate& date, std::ostream* out)
{
  *out << date.toString(Qt::ISODate).toStdString();
}
