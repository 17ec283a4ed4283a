#pragma once

#include "startup/Screen.h"

// The screen of this name; null if the program has none.
std::unique_ptr<Screen> makeProgramScreen(Session& session, const QString& name);
