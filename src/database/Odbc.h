#pragma once

#include "database/DatabaseError.h"
#include "database/RowSet.h"
#include "database/ServerAddress.h"

#include <memory>

// One connection through the machine's ODBC driver manager, with the words and the limits of time that
// the kinds of server want. What is run goes to the server unchanged: the engine, and the makers of
// account sets, say what may be run.
//
// Nothing waits without an end: connecting, a lock and a statement each have their limit, and a server
// that has fallen silent is given up: where it no longer keeps the limits itself, the connection is cut.
class Odbc {
public:
  enum class Kind { PostgreSql, SqlServer, Unknown };

  [[nodiscard]] static DatabaseResult<std::unique_ptr<Odbc>> open(const ServerAddress& server, const ServerWaits& waits = {});

  ~Odbc();

  // What the server says that it is.
  Kind kind() const;
  // Runs one statement, given as UTF-8, and reads its rows to their end.
  [[nodiscard]] DatabaseResult<RowSet> run(const QByteArray& utf8);
  // Asks the server for a sign of life, for which it has as long as for connecting.
  [[nodiscard]] DatabaseResult<RowSet> tryOut();
  // True once a failure has shown that the server is gone from the other end, or it had to be given up.
  bool isLost() const;
  // The latter alone: it had all the time that a statement may take.
  bool isGivenUp() const;

  // The text that a driver of some library takes: each writes host and port, and its limits, in its own
  // way. Values that need it are put in braces.
  static QString driverText(const ServerAddress& server, const ServerWaits& waits, const QString& library);

private:
  struct Handles;

  explicit Odbc(std::unique_ptr<Handles> handles);
  DatabaseResult<void> setUp(const ServerWaits& waits);
  DatabaseResult<RowSet> runWithin(const QByteArray& utf8, std::chrono::milliseconds limit);
  DatabaseResult<RowSet> execute(const QByteArray& utf8);

  std::unique_ptr<Handles> m_handles;
};
