#pragma once

#include <QString>

// Removes spaces, and nothing else, from both ends: the suite trims U+0020 only. A line break or a full-width space
// stays.
inline QString Trim(QStringView text)
{
  while (text.startsWith(u' '))
    text = text.mid(1);
  while (text.endsWith(u' '))
    text.chop(1);
  return text.toString();
}
