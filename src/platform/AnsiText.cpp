#include "platform/AnsiText.h"

#include <QStringConverter>

namespace AnsiText {

QByteArray encode(const QString& text, bool* lossless)
{
  QStringEncoder encoder("GBK", QStringConverter::Flag::Stateless);
  const QByteArray bytes = encoder.encode(text);
  if (lossless)
    *lossless = decode(bytes) == text;
  return bytes;
}

QString decode(const QByteArray& bytes)
{
  QStringDecoder decoder("GBK", QStringConverter::Flag::Stateless);
  return decoder.decode(bytes);
}

} // namespace AnsiText
