#pragma once

#include "database/Statement.h"

#include <QString>

#include <optional>

struct Session;

// The request for one record of a master table.
struct CodePickerCall {
  // The first list. A refresh or a search lists `CodeTable` instead.
  Statement sql;
  // TabClient, TabProvide or TabStuff; it determines the categories and what can be added.
  QString CodeTable;
  // Caption of the dialog and of the label above the list.
  QString title;
  bool offersAdd = false;
};

// What was chosen: a row of the list, or what was typed into its boxes, which is not checked.
struct PickedRecord {
  QString code;
  QString name;
};

namespace CodePicker {

// Shows frmCode over the screen and returns when it is closed; nothing if the user left it without a choice.
// RunTimeError if the list cannot be read.
std::optional<PickedRecord> pick(Session& session, const CodePickerCall& call);

} // namespace CodePicker
