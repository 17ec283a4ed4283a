#pragma once

#include <QString>

// Numbers as text, and back: the one place that knows how an amount typed by an operator is read
// and how a number looks in a cell, in a message and in SQL text.
namespace NumberText {

// The value of the longest number at the start of `text` (leading spaces are skipped):
// optional sign, digits, point, exponent. 0 if there is none or if it is beyond a double.
double numericPrefix(QStringView text);

// True if the whole trimmed text is a number.
bool isNumeric(QStringView text);

// Fifteen significant digits, never an exponent, "0.5" with its zero: as numbers are written in SQL text
// and as a stored number is read as text.
QString ofDouble(double value);

// The same for single precision: seven significant digits.
QString ofSingle(float value);

// Plain text with a leading space for a value that is not negative and without the zero before
// the point: " 1234.5", " .5", "-.5".
QString plain(double value);

// A number given as a plain decimal text ("-1234.5"), rounded half away from zero, as commerce does it, to
// `decimals` digits; at least one digit before the point; with thousands separators if `grouped`.
QString fixedOfDecimal(const QString& decimal, int decimals, bool grouped);

} // namespace NumberText
