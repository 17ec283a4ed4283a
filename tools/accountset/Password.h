#pragma once

#include "accountset/Place.h"

// Passwords of servers. None is taken from an argument, which everybody on the machine can read.
namespace Password {

// Gives a server's place its password: from the environment variable ACCOUNTSET_PASSWORD, or asked for on
// the terminal. A file needs none. Empty if that worked, otherwise why not.
QString supply(Place& place);

} // namespace Password
