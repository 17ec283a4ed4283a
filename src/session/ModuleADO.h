#pragma once

#include "database/Recordset.h"
#include "database/Statement.h"

#include <QDate>
#include <QString>

struct Session;

// The only entry point to the database. Every statement is built by the routine that needs it; OpenRecordset reads,
// Execute writes. There is no transaction anywhere.

// The connection text of the session, after a warning if the account set or the server is missing.
QString GetConnectionString(Session& session);

// Runs a select, opening the connection first if it is not open. A statement whose shape a value has changed is
// not run. A failure shows "Error:" with number and description and returns a recordset that is not open, which
// throws when it is read.
[[nodiscard]] Recordset OpenRecordset(Session& session, const Statement& statement);

// The same for an insert, update or delete. False if it failed, which has been shown: most callers go on with
// their next step all the same.
bool Execute(Session& session, const Statement& statement);

// A select for a caller that has a message of its own: a failure shows nothing and throws RunTimeError.
Recordset OpenRecordsetForUpdate(Session& session, const Statement& statement);

// Closes the connection, as a screen does when it closes; the next statement opens it again.
void CloseConnection(Session& session);

// The expressions that the two kinds of database write differently. All SQL with a date or a cast in it is built with
// these.
namespace SqlDialect {

// "#2022-06-08#" or "'2022-06-08'".
Statement date(const Session& session, const QDate& date);
Statement date(const Session& session, const QString& dateText);
// "cint(DateeY)" or "convert(int,DateeY)".
Statement integer(const Session& session, SqlLiteral column);
// "isnull(x)" or "x is null".
Statement isNull(const Session& session, SqlLiteral column);

} // namespace SqlDialect
