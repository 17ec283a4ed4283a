#pragma once

#include <QString>

struct Session;

// The five orders that one program hands to another.
struct Directives {
  QString first;
  QString second = {};
  QString third = {};
  QString fourth = {};
  QString fifth = {};
};

// The start of other programs of the suite.
namespace Mod_ZORVEKMain {

// Starts the program that an operation belongs to, with the session and these orders.
// True only if it was started; every failure has been shown.
bool RunSiblingProgram(Session& session, const QString& operation, const Directives& directives);

} // namespace Mod_ZORVEKMain
