#pragma once

#include <QString>

class Form;
struct Session;

// Where the code picker's choice goes: by the caller's name and the table that was picked from. The
// caller is known by the names of its controls alone.
namespace CodeWriteBack {

struct Choice {
  QString CodeTable;
  QString ReturnField;
  QString code;
  QString name;
};

// Writes the choice into the caller; nothing for a caller that has no place here, the write-off bench
// included. RunTimeError if the salesman of a partner cannot be read; code and name then stand.
void write(Session& session, Form& caller, const Choice& choice);

} // namespace CodeWriteBack
