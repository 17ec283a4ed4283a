#pragma once

#include "screen/Key.h"

#include <QString>

class Desk;

namespace ModFuntion {

// True if a field that accepts only these characters (case-insensitive), and Backspace if `allowBackspace`,
// accepts the key; otherwise it beeps. Keys that type nothing are always accepted.
bool FilterKeyPress(Desk& desk, const Key& key, const QString& allowedCharacters, bool allowBackspace);

} // namespace ModFuntion
