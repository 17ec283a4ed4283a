#pragma once

#include "database/Engine.h"
#include "database/Recordset.h"

// The one connection of a session: a holder that is open or not. Opening picks the engine that the
// connection text asks for.
class Connection {
public:
  bool isOpen() const { return m_engine && m_engine->isOpen(); }
  void close() { m_engine.reset(); }

  // Opens by a connection text; null if it worked, otherwise the error.
  std::unique_ptr<DatabaseError> open(const QString& connectionText);

  struct Outcome {
    Recordset recordset; // not open if the statement gives no rows or failed
    std::unique_ptr<DatabaseError> error;
  };
  // Runs one statement on the open connection. One that was dropped is made anew, once, if the statement
  // cannot have done anything yet; otherwise the failure is told and the holder is no longer open.
  Outcome run(const QString& sql);

private:
  std::unique_ptr<Engine> m_engine;
  QString m_text; // by which it was opened
};
