#pragma once

#include "database/Engine.h"
#include "database/ServerAddress.h"

// The server engine: a database reached through the machine's ODBC driver manager. Translates to the dialect of the
// server that it finds.
//
// A statement that fails because the connection was dropped leaves the engine not open. It is marked
// repeatable only if nothing of it can have been done: a select, or a write that was not yet sent. A
// write that was sent is never repeated, here or by the caller, nor is a select that has used up its time.
struct ServerEngine {
  [[nodiscard]] static DatabaseResult<std::unique_ptr<Engine>> open(const ServerAddress& server, const ServerWaits& waits = {});
};
