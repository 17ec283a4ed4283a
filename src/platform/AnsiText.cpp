#include "platform/AnsiText.h"

#include <QStringConverter>

namespace AnsiText {
namespace {

// True if the input ends in the middle of a two-byte character.
bool endsInsidePair(const QByteArray& bytes)
{
  qsizetype at = 0;
  while (at < bytes.size())
    at += isLeadByte(static_cast<unsigned char>(bytes[at])) ? 2 : 1;
  return at > bytes.size();
}

} // namespace

QByteArray encode(const QString& text)
{
  QStringEncoder encoder("GBK", QStringConverter::Flag::Stateless);
  return encoder.encode(text);
}

bool holds(const QString& text)
{
  return decode(encode(text)) == text;
}

QString decode(const QByteArray& bytes)
{
  QStringDecoder decoder("GBK", QStringConverter::Flag::Stateless);
  const QString text = decoder.decode(bytes);
  // The decoder waits for the other half and would leave it out.
  return endsInsidePair(bytes) ? text + QChar(QChar::ReplacementCharacter) : text;
}

} // namespace AnsiText
