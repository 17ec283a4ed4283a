#pragma once

#include <QByteArray>
#include <QString>

// Text in the system's ANSI code page (GBK), the encoding of every file that the suite shares.
namespace AnsiText {

// The bytes of a text. A character that the code page does not have is written as "?".
QByteArray encode(const QString& text);
// Whether the code page has every character of a text.
bool holds(const QString& text);

// The text of some bytes; invalid bytes decode to U+FFFD.
QString decode(const QByteArray& bytes);

// True if a byte is the first of a two-byte character.
constexpr bool isLeadByte(unsigned char byte)
{
  return byte >= 0x81 && byte <= 0xFE;
}

} // namespace AnsiText
