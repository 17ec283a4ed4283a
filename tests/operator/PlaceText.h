#pragma once

#include <QString>
#include <QStringList>

// How an operator script writes texts, and several of them on one line.
namespace PlaceText {

// Blanks and tabs cut off both ends. A full-width blank is a character like any other.
QString cut(QStringView text);

// The text that a script means: cut, and without the double quotes that keep its blanks.
QString unquoted(QStringView text);

// The places of a line between its "|", each cut and unquoted. A "|" inside quotes parts nothing.
QStringList split(QStringView line);

// A text as a script writes it: every line break is "\n".
QString onOneLine(QString text);

} // namespace PlaceText
