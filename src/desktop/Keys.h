#pragma once

#include "screen/Key.h"

#include <optional>

class QKeyEvent;

// The key press as controls know it; nullopt for any other, such as a function key or a key with Ctrl or
// Alt.
std::optional<Key> keyOf(const QKeyEvent& event);
