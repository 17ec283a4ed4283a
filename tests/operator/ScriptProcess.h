#pragma once

#include "database/ServerAddress.h"

#include <QString>
#include <functional>
#include <optional>

// One script in a process of its own, so that one that crashes or hangs is a failure like any other
// and leaves nothing to the next.
namespace ScriptProcess {

struct Task {
  QString script;
  QString programFolder;      // made new
  QString shelf;              // where finished account sets are kept from script to script
  QString pictureFolder = {}; // empty for no pictures
  bool desktop = false;
  std::optional<ServerAddress> server = {}; // whose administrator makes the account sets; none for files
  std::function<void()> atRest = {};        // called in that process when nothing is being done
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
