#pragma once

#include "database/DatabaseError.h"
#include "database/RowSet.h"
#include "database/ServerAddress.h"

#include <memory>

// One connection through the machine's ODBC driver manager, with each server's connection syntax and timeouts. A
// statement goes to the server unchanged: the callers decide what may be run.
//
// Nothing waits forever: connecting, a lock and a statement each have a timeout. If the server stops responding and
// no longer enforces them, the connection is cut.
class Odbc {
public:
  enum class Kind { PostgreSql, SqlServer, Unknown };

  [[nodiscard]] static DatabaseResult<std::unique_ptr<Odbc>> open(const ServerAddress& server, const ServerWaits& waits = {});

  ~Odbc();

  // The kind that the server reports.
  Kind kind() const;
  // Runs one statement, given as UTF-8, and reads its rows to their end.
  [[nodiscard]] DatabaseResult<RowSet> run(const QByteArray& utf8);
  // One transaction: its first statement starts it on the server. A statement that fails is undone alone, unless the
  // failure is one that ends the transaction; then it is rolled back.
  void begin();
  // After a failure nothing is stored, as far as the server has said.
  [[nodiscard]] DatabaseResult<void> commit();
  void rollback();
  bool isInTransaction() const;
  // Pings the server, with the timeout for connecting.
  [[nodiscard]] DatabaseResult<RowSet> tryOut();
  // True once a failure has shown that the connection is lost, or the server had to be given up.
  bool isLost() const;
  // The latter alone: it did not respond within the timeout.
  bool isGivenUp() const;

  // The connection text for the driver in `library`: each has its own syntax for host, port and timeouts. Values that
  // need it are put in braces.
  static QString driverText(const ServerAddress& server, const ServerWaits& waits, const QString& library);

private:
  struct Handles;

  explicit Odbc(std::unique_ptr<Handles> handles);
  DatabaseResult<void> setUp(const ServerWaits& waits);
  DatabaseResult<RowSet> runWithin(const QByteArray& utf8, std::chrono::milliseconds limit);
  DatabaseResult<RowSet> execute(const QByteArray& utf8);
  DatabaseResult<void> end(short completion);
  // Marks the connection as lost if a failure with this state shows it.
  void noteLoss(const QByteArray& state);

  std::unique_ptr<Handles> m_handles;
};
