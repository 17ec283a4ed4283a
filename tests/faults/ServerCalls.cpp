#include "FaultyFiles.h"
#include "StatementHook.h"

#include <QByteArray>

#include <sql.h>
#include <sqlext.h>

// Between the program and the ODBC driver manager: the linker's --wrap redirects our calls to these, and no other's.

// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
extern "C" SQLRETURN __real_SQLExecDirect(SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length);
extern "C" SQLRETURN __real_SQLSetConnectAttr(SQLHDBC connection, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER length);
extern "C" SQLRETURN __real_SQLEndTran(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT completion);

namespace {

// Of this thread's connection that was used last; a thread writes through one at a time.
thread_local bool isInTransaction = false;
thread_local bool hasWritten = false;

bool isWrite(const SQLCHAR* text, SQLINTEGER length)
{
  const QByteArray word = QByteArray(reinterpret_cast<const char*>(text), length).trimmed().first(6).toLower();
  return word == "insert" || word == "update" || word == "delete";
}

} // namespace

extern "C" SQLRETURN __wrap_SQLExecDirect(SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length)
{
  StatementHook::call();
  const SQLRETURN code = __real_SQLExecDirect(statement, text, length);
  if (length < 6 || !isWrite(text, length))
    return code;
  FaultyFiles::noteServerWrite();
  if (isInTransaction)
    hasWritten = true;
  else if (SQL_SUCCEEDED(code))
    FaultyFiles::noteServerCommit();
  return code;
}

extern "C" SQLRETURN __wrap_SQLSetConnectAttr(SQLHDBC connection, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER length)
{
  if (attribute == SQL_ATTR_AUTOCOMMIT)
    isInTransaction = value == reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF);
  return __real_SQLSetConnectAttr(connection, attribute, value, length);
}

extern "C" SQLRETURN __wrap_SQLEndTran(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT completion)
{
  const bool isCommit = completion == SQL_COMMIT && hasWritten;
  hasWritten = false;
  if (isCommit)
    FaultyFiles::noteServerWrite();
  const SQLRETURN code = __real_SQLEndTran(kind, handle, completion);
  if (isCommit && SQL_SUCCEEDED(code))
    FaultyFiles::noteServerCommit();
  return code;
}
// NOLINTEND(bugprone-reserved-identifier)
