#pragma once

#include "database/Statement.h"

#include <QString>

class Form;
struct Session;

// How a form asks for one record of a master table.
struct CodePickerCall {
  // The first list. A refresh or a search drops it and lists `CodeTable` instead.
  Statement sql;
  // TabClient, TabProvide, TabStuff or TabWare; with it, the caller's name decides where the choice goes.
  QString CodeTable;
  // Caption of the dialog and of the label above the list.
  QString title;
  bool offersAdd = false;
  // "Code" or "Name": which of its two boxes the invoice matching wants filled.
  QString ReturnField = {};
};

namespace CodePicker {

// Shows frmCode over the caller and returns when it is closed. The choice has then been written into
// the caller's controls, which are found by name; a caller that the picker does not know, and one whose
// operator left the dialog, is as it was. RunTimeError if the list cannot be read.
void pick(Session& session, Form& caller, const CodePickerCall& call);

} // namespace CodePicker
