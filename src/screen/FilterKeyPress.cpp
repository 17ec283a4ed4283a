#include "screen/FilterKeyPress.h"

#include "screen/Desk.h"

namespace ModFuntion {

bool FilterKeyPress(Desk& desk, const Key& key, const QString& allowedCharacters, bool allowBackspace)
{
  const bool types = key.code == Key::Character || key.code == Key::Backspace;
  const bool allowed = key.code == Key::Backspace ? allowBackspace : allowedCharacters.contains(key.text, Qt::CaseInsensitive);
  if (!types || allowed)
    return true;
  desk.beep();
  return false;
}

} // namespace ModFuntion
