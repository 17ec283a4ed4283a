#pragma once

#include "accountset/AccountSetLocation.h"

// Passwords of servers. None is taken from an argument, which everybody on the machine can read.
namespace Password {

// Completes a server's location with its password: from the environment variable ACCOUNTSET_PASSWORD, or asked for on
// the terminal. A file needs none. Empty if that worked, otherwise why not.
QString supply(AccountSetLocation& location);

} // namespace Password
