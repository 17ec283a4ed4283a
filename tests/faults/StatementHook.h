#pragma once

#include <functional>

// Called in the thread that runs a statement of the program, on a file or a server, just before it runs.
namespace StatementHook {

inline thread_local std::function<void()> atStatement;

inline void call()
{
  if (atStatement)
    atStatement();
}

} // namespace StatementHook
