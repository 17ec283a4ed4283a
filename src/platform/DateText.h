#pragma once

#include <QDate>
#include <QString>
#include <optional>

// Dates as text. The system's short date form is yyyy-MM-dd on every machine.
namespace DateText {

// The date at the start of a text: year, month and day parted by "-", "/" or ".", months and days
// of one or two digits, a time after it allowed. Nothing if the text is no date or no such day exists.
std::optional<QDate> parse(QStringView text);

// The short form, as it is written in SQL text, in date boxes and in the parameter file.
QString shortForm(const QDate& date);

// The date that the three texts make; RunTimeError (type mismatch) if there is no such day.
QDate build(int year, int month, int day);

} // namespace DateText
