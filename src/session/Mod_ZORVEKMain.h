#pragma once

#include "session/SessionParams.h"

#include <QString>

class Screen;
class Screens;
struct Session;

// The entry of a run, and the start of other programs of the family.
namespace Mod_ZORVEKMain {

// What the entry came to: the screen that now stands, or the end of the run.
struct Start {
  Screen* screen = nullptr; // null if the run has ended
  int exitStatus = 0;
};

// Reads and deletes the parameter file, loads the decimal settings, opens the one screen that the
// orders name. Unreadable parameters and unknown orders end the run with their message, and so does
// a run-time error before a screen stands.
Start Main(Session& session, Screens& screens);

// Starts the program of the family that an operation belongs to, with the session and these orders.
// True only if it was started; every failure has been shown.
bool RunSiblingProgram(Session& session, const QString& operation, const Directives& directives);

} // namespace Mod_ZORVEKMain
