#pragma once

#include <QString>

class Form;

// Where the tree picker's choice goes: by the caller's name, what was picked and where the caller
// wants it. The caller is known by the names of its controls, and its line grid as an AccountReceiver.
namespace TreeWriteBack {

struct Choice {
  QString TreeTable;
  QString TreeKind;
  QString TreeTarget;
  QString code;
  QString name;
};

// Hands the choice to the caller; nothing for one that has no place here.
void write(Form& caller, const Choice& choice);

} // namespace TreeWriteBack
