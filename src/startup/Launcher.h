#pragma once

#include <QString>

struct Session;

// The five directives that one program passes to another.
struct Directives {
  QString first;
  QString second = {};
  QString third = {};
  QString fourth = {};
  QString fifth = {};
};

// Starts other programs of the suite.
namespace Mod_ZORVEKMain {

// Starts the program that an operation belongs to, with the session and these directives. True only if it was
// started; every failure has been shown.
bool RunSiblingProgram(Session& session, const QString& operation, const Directives& directives);

} // namespace Mod_ZORVEKMain
