#pragma once

#include <QByteArray>
#include <QString>

// Text in the system's ANSI code page (GBK), the encoding of every file that the program family shares.
namespace AnsiText {

// The bytes of a text. `lossless`, if given, tells whether every character has a place in the code
// page; one that has none is written as "?".
QByteArray encode(const QString& text, bool* lossless = nullptr);

// The text of some bytes; what is no character of the code page reads as U+FFFD.
QString decode(const QByteArray& bytes);

// True if a byte opens a two-byte character.
constexpr bool isLeadByte(unsigned char byte)
{
  return byte >= 0x81 && byte <= 0xFE;
}

} // namespace AnsiText
