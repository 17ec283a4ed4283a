#pragma once

#include "database/Connection.h"
#include "platform/Machine.h"
#include "screen/Desk.h"
#include "session/DotType.h"
#include "session/SessionParams.h"
#include "spreadsheet/Spreadsheet.h"

#include <map>
#include <memory>
#include <typeindex>

// Everything that a run needs from its environment, created at start and passed by reference.
struct Session {
  Desk& desk;
  Machine& machine;
  SessionParams params = {};
  DotType DotSet = {};
  Connection connection = {};
  Spreadsheet spreadsheet = Spreadsheet();

  // What a module keeps for the run: one object of each type, created at first use.
  template <typename State> State& kept()
  {
    auto& state = keptState[typeid(State)];
    if (!state)
      state = std::make_shared<State>();
    return *static_cast<State*>(state.get());
  }

  std::map<std::type_index, std::shared_ptr<void>> keptState = {};
};
