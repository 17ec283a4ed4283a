#pragma once

#include <QByteArray>
#include <QString>

// The scrambling of the lines of SysPar.dll. It works on the bytes of the ANSI code page, so that
// every character of that page survives the trip, whatever the shifted value would be as a character.
namespace ModChangeStr {

// The trimmed line, its characters from last to first, each lowered by 5; a two-byte character is
// one number. Not ended by a line break. What the code page has no character for is written as "?".
QByteArray ChangeStrEncode(const QString& line);

// The line that was scrambled.
QString ChangeStrDecode(const QByteArray& scrambled);

} // namespace ModChangeStr
