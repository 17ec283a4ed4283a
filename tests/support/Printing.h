#pragma once

#include "database/DatabaseError.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <ostream>
#include <string>

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

// For the words behind an expectation.
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
