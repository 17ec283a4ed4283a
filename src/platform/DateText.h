#pragma once

#include <QDate>
#include <QString>
#include <optional>

// Dates as text. The system's short date form is yyyy-MM-dd on every machine.
namespace DateText {

// The date at the start of a text: year, month and day separated by "-", "/" or ".", months and days of one or two
// digits; an optional time may follow. Nothing if it is not a valid date.
std::optional<QDate> parse(QStringView text);

// The short form, as it is written in SQL text, in date boxes and in the parameter file.
QString shortForm(const QDate& date);

// RunTimeError (type mismatch) if there is no such day.
QDate build(int year, int month, int day);

} // namespace DateText
