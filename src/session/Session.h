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

// Everything that one run asks of its surroundings, made at start and handed down by reference.
struct Session {
  Desk& desk;
  Machine& machine;
  SessionParams params = {};
  DotType DotSet = {};
  Connection connection = {};
  Spreadsheet spreadsheet = Spreadsheet();

  // What a module keeps for the run: one object of each type, made at first use.
  template <typename State> State& kept()
  {
    auto& state = keptState[typeid(State)];
    if (!state)
      state = std::make_shared<State>();
    return *static_cast<State*>(state.get());
  }

  std::map<std::type_index, std::shared_ptr<void>> keptState = {};
};
