#pragma once

#include "startup/Screen.h"

#include <memory>

struct Session;

// The entry of a run.
namespace Mod_ZORVEKMain {

// The result of the entry: the screen that is now open, or the end of the run.
struct Start {
  std::unique_ptr<Screen> screen; // null if the run has ended
  int exitStatus = 0;
};

// Reads and deletes the parameter file, loads the decimal settings, opens the one screen that the directives name.
// Unreadable parameters and unknown directives end the run with their message, and so does a run-time error before a
// screen is open.
Start Main(Session& session, ScreenMaker make);

} // namespace Mod_ZORVEKMain
