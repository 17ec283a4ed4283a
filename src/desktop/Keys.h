#pragma once

#include "screen/Key.h"

#include <optional>

class QKeyEvent;

// The key press as the controls know it; nothing for a key that they do not know, such as a function
// key or one with Ctrl or Alt held.
std::optional<Key> keyOf(const QKeyEvent& event);
