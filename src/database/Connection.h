#pragma once

#include "database/Engine.h"
#include "database/Recordset.h"

// The one connection of a session: a holder that is open or not. Opening picks the engine that the
// connection text asks for.
class Connection {
public:
  bool isOpen() const { return m_engine && m_engine->isOpen(); }
  void close() { m_engine.reset(); }

  [[nodiscard]] DatabaseResult<void> open(const QString& connectionText);

  // Runs one statement on the open connection; the recordset of anything but a select is not open. A connection
  // that was dropped is made again, once, if the statement cannot have done anything yet; otherwise the error is
  // returned and the holder is no longer open.
  [[nodiscard]] DatabaseResult<Recordset> run(const QString& sql);

private:
  std::unique_ptr<Engine> m_engine;
  QString m_text; // by which it was opened
};
