#include "platform/HalfWidth.h"

QString halfWidth(QString text)
{
  static constexpr char16_t Offset = u'！' - u'!';
  for (QChar& character : text) {
    const QChar half(char16_t(character.unicode() - Offset));
    if (character >= u'！' && character <= u'～' && (half.isLetterOrNumber() || half == u',' || half == u'.' || half == u'-'))
      character = half;
  }
  return text;
}
