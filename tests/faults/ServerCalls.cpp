#include "StatementHook.h"

#include <dlfcn.h>
#include <sql.h>

// Stands between the program and the ODBC driver manager: this definition comes before the library's own.
extern "C" SQLRETURN SQLExecDirect(SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length)
{
  static const auto Real = reinterpret_cast<decltype(&SQLExecDirect)>(dlsym(RTLD_NEXT, "SQLExecDirect"));
  StatementHook::call();
  return Real(statement, text, length);
}
