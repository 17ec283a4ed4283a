#pragma once

#include "accountset/AccountSetLocation.h"

#include <QStringList>

// What does not add up in an account set. Questions only: nothing is changed, neither in a file nor on a
// server, where the program's own login suffices.
namespace Check {

struct Finding {
  QString what;     // a rule that does not hold
  QStringList rows; // where, one a line
};

// The rules that do not hold, in their order. `reason` tells why the account set could not be looked
// through to the end.
QList<Finding> run(const AccountSetLocation& location, QString& reason);

} // namespace Check
