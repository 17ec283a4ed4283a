#pragma once

#include "database/Engine.h"
#include "database/Recordset.h"

// The session's connection, open or closed. Opening picks the engine that the connection text names.
class Connection {
public:
  bool isOpen() const { return m_engine && m_engine->isOpen(); }
  void close() { m_engine.reset(); }

  [[nodiscard]] DatabaseResult<void> open(const QString& connectionText);

  // Runs one statement on the open connection; the recordset of anything but a select is not open. If the connection
  // was dropped, reconnects once and retries, provided that the statement cannot have had any effect; otherwise
  // returns the error and is no longer open.
  [[nodiscard]] DatabaseResult<Recordset> run(const QString& sql);

  // One transaction on the open connection, which is not dropped and opened again within it.
  [[nodiscard]] DatabaseResult<void> begin();
  // After a failure nothing of it is stored.
  [[nodiscard]] DatabaseResult<void> commit();
  // Ends a transaction that the engine may have given up already.
  void rollback();
  bool isInTransaction() const { return m_isInTransaction; }
  // True if the engine has ended the transaction by itself: nothing of it is stored.
  bool hasLostTransaction() const { return m_isInTransaction && !(isOpen() && m_engine->isInTransaction()); }

private:
  std::unique_ptr<Engine> m_engine;
  QString m_text; // the text that it was opened with
  bool m_isInTransaction = false;
};
