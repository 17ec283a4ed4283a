#pragma once

#include "accountset/AccountSetLocation.h"

#include <QStringList>

#include <tl/expected.hpp>

#include <functional>

// Finds inconsistencies in an account set, and corrects those that have one right answer: earlier versions of the program,
// which wrote each statement by itself, left them when they died. On a server the program's own login suffices.
namespace Check {

struct Finding {
  QString what;              // the rule that does not hold
  QStringList rows;          // where, one per line
  QStringList repaired = {}; // where it did not, and does now
  QString advice = {};       // what to do about the rows
};
using Report = std::function<void(const Finding&)>;

// Reports the rules that do not hold, in their order, and changes nothing. After an error the check is incomplete.
[[nodiscard]] tl::expected<void, QString> run(const AccountSetLocation& location, const Report& report);

// True if `repair` would correct something.
[[nodiscard]] tl::expected<bool, QString> isRepairable(const AccountSetLocation& location);

// The same as `run`, and corrects what can be corrected, as one transaction: after an error nothing has been
// changed. Operators may go on working. The caller has made a backup.
[[nodiscard]] tl::expected<void, QString> repair(const AccountSetLocation& location, const Report& report);

} // namespace Check
