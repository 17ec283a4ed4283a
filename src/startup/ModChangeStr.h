#pragma once

#include <QByteArray>
#include <QString>

// The scrambling of the lines of SysPar.dll. It works on the bytes of the ANSI code page, so that every character of
// that page survives the round trip, whatever the shifted value would be as a character.
namespace ModChangeStr {

// The trimmed line with its characters reversed, each lowered by 5; a two-byte character is one number. Without a
// line break. Characters outside the code page are written as "?".
QByteArray ChangeStrEncode(const QString& line);

// The original line.
QString ChangeStrDecode(const QByteArray& scrambled);

} // namespace ModChangeStr
