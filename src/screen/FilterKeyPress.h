#pragma once

#include "screen/Key.h"

#include <QString>

class Desk;

namespace ModFuntion {

// True if the key may go into a field that takes only these characters (Latin case does not matter),
// and Backspace if `allowBackspace`; otherwise the beep sounds. Keys that type nothing always may.
bool FilterKeyPress(Desk& desk, const Key& key, const QString& allowedCharacters, bool allowBackspace);

} // namespace ModFuntion
