#pragma once

#include "accountset/AccountSetLocation.h"

#include <QStringList>

#include <tl/expected.hpp>

#include <functional>

// What does not add up in an account set. Queries only: nothing is changed, neither in a file nor on a
// server, where the program's own login suffices.
namespace Check {

struct Finding {
  QString what;     // a rule that does not hold
  QStringList rows; // where, one a line
};

// Reports the rules that do not hold, in their order. After an error the account set was not looked through
// to the end.
[[nodiscard]] tl::expected<void, QString> run(const AccountSetLocation& location, const std::function<void(const Finding&)>& report);

} // namespace Check
