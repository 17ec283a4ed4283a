#pragma once

#include "database/Recordset.h"
#include "database/Statement.h"

#include <QDate>
#include <QString>

#include <functional>

struct Session;

// The only entry point to the database. Every statement is built by the routine that needs it; OpenRecordset reads,
// Execute writes. What one action writes is one transaction, see inOneTransaction.

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

// A select whose result only explains something: a failure shows nothing and returns a recordset without rows.
Recordset LookUp(Session& session, const Statement& statement);

// Runs the writes of one action as one transaction: after a death, of the machine too, either all of them are stored or
// none, and other users see either all or none. A statement outside of one is a transaction by itself.
//
// Within it a failed statement is undone alone and shows its box, and the next one runs, as elsewhere. Boxes are held
// until the transaction is committed; `writes` must not ask a question or show a form. A RunTimeError out of `writes`
// commits what was written before it. Where the engine gives up the whole transaction, or can't commit it, "Error:" is
// the only box, nothing is stored and ActionLost is thrown.
//
// `committed` runs as soon as they are stored, before any box is shown. It must not throw.
//
// Called within another one, it is part of that one.
void inOneTransaction(Session& session, const std::function<void()>& writes, const std::function<void()>& committed = [] {});

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
