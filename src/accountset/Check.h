#pragma once

#include "accountset/AccountSetLocation.h"

#include <QStringList>

#include <tl/expected.hpp>

#include <functional>

// Finds inconsistencies in an account set. Queries only: nothing is changed, and on a server the program's own login
// suffices.
namespace Check {

struct Finding {
  QString what;     // the rule that does not hold
  QStringList rows; // where, one per line
};

// Reports the rules that do not hold, in their order. After an error the check is incomplete.
[[nodiscard]] tl::expected<void, QString> run(const AccountSetLocation& location, const std::function<void(const Finding&)>& report);

} // namespace Check
