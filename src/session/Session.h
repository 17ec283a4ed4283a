#pragma once

#include "database/Connection.h"
#include "platform/Machine.h"
#include "screen/Desk.h"
#include "session/DotType.h"
#include "session/PrintStrings.h"
#include "session/SessionParams.h"
#include "spreadsheet/Spreadsheet.h"

// Everything that one run asks of its surroundings, made at start and handed down by reference.
struct Session {
  Desk& desk;
  Machine& machine;
  SessionParams params = {};
  DotType DotSet = {};
  Connection connection = {};
  // The node clicked last in the tree picker; it outlives the dialog.
  QString SelectedCode = {};
  PrintStrings printStrings = {};
  Spreadsheet spreadsheet = Spreadsheet();

  // The date of the session; today if it is none.
  QDate operateDate() const;
};
