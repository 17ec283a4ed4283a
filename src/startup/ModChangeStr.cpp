#include "startup/ModChangeStr.h"

#include "platform/AnsiText.h"
#include "platform/Trim.h"

namespace ModChangeStr {
namespace {

// Reverses the order of characters and adds `shift` to each.
QByteArray reversedAndShifted(const QByteArray& bytes, int shift)
{
  QByteArray result(bytes.size(), Qt::Uninitialized);
  qsizetype end = bytes.size();
  for (qsizetype at = 0; at < bytes.size();) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const bool isPair = AnsiText::isLeadByte(first) && at + 1 < bytes.size();
    if (isPair) {
      const unsigned value = (unsigned(first) << 8 | static_cast<unsigned char>(bytes[at + 1])) + unsigned(shift);
      result[--end] = char(value & 0xFF);
      result[--end] = char(value >> 8 & 0xFF);
    } else {
      result[--end] = char((unsigned(first) + unsigned(shift)) & 0xFF);
    }
    at += isPair ? 2 : 1;
  }
  return result;
}

} // namespace

QByteArray ChangeStrEncode(const QString& line)
{
  return reversedAndShifted(AnsiText::encode(Trim(line)), -5);
}

QString ChangeStrDecode(const QByteArray& scrambled)
{
  return AnsiText::decode(reversedAndShifted(scrambled, 5));
}

} // namespace ModChangeStr
