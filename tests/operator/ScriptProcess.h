#pragma once

#include "database/ServerAddress.h"

#include <QString>
#include <functional>
#include <optional>

// One script in a process of its own, so that one that crashes or hangs fails like any other and does not affect the next.
namespace ScriptProcess {

struct Task {
  QString script;
  QString programFolder;      // made new
  QString shelf;              // where finished account sets are cached for the next scripts
  QString pictureFolder = {}; // empty for no pictures
  bool desktop = false;
  std::optional<ServerAddress> server = {}; // whose administrator makes the account sets; none for files
  std::function<void()> atRest = {};        // called in that process whenever the program waits for the user
};

enum class Outcome { Passed, Skipped, Failed };

struct Result {
  Outcome outcome = Outcome::Failed;
  int line = 0;
  QString reason = {};
};

// Plays the script to its end. May only be called while this process has no application object.
Result play(const Task& task);

} // namespace ScriptProcess
