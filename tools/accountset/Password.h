#pragma once

#include "accountset/AccountSetLocation.h"

#include <tl/expected.hpp>

// Passwords of servers. None is taken from an argument, which everybody on the machine can read.
namespace Password {

// Completes a server's location with its password: from the environment variable ACCOUNTSET_PASSWORD, or asked for on
// the terminal. A file needs none.
[[nodiscard]] tl::expected<void, QString> supply(AccountSetLocation& location);

} // namespace Password
