#pragma once

#include <QString>
#include <QStringList>

// How an operator script writes texts, and several of them in one line.
namespace PlaceText {

// Without the spaces and tabs at both ends. A full-width space is a character like any other.
QString cut(QStringView text);

// Cut, and without the double quotes that protect its spaces.
QString unquoted(QStringView text);

// The texts of a line between its "|", each cut and unquoted. A "|" inside quotes is part of its text.
QStringList split(QStringView line);

// Every line break as "\n".
QString onOneLine(QString text);

} // namespace PlaceText
