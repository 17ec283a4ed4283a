#pragma once

#include <QString>

// Cuts blanks, and nothing else, from both ends: the only trimming that the system knows. A line
// break or a full-width blank stays.
inline QString Trim(QStringView text)
{
  while (text.startsWith(u' '))
    text = text.mid(1);
  while (text.endsWith(u' '))
    text.chop(1);
  return text.toString();
}
