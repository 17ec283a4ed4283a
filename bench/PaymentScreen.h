#pragma once

#include "program/ProgramScreens.h"
#include "session/Session.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"

#include <QTemporaryDir>

// A payment screen without its window over a fresh copy of the sample firm, and calls that act as its user.
// The copies are below the working folder, so that a sync costs what it costs on the disk.
class PaymentScreen {
public:
  PaymentScreen();

  // Fills in a partner and `lines` lines with one account and different amounts.
  void fillIn(int lines);
  // Types `text` into the cell; the editor stays open over it.
  void typeIntoCell(int row, int column, const QString& text);
  // Presses the save button. Ends the run if the bill is not saved.
  void save();

  // A fresh copy of the sample firm for the same bill.
  static QString freshAccountSet(const QTemporaryDir& folder);

  const QTemporaryDir& folder() const { return m_folder; }
  FakeDesk& desk() { return m_desk; }
  Session& session() { return m_session; }
  template <typename Kind> Kind& control(const char* name) { return *m_screen->find<Kind>(QString::fromLatin1(name)); }

private:
  QTemporaryDir m_folder{"benchmarks-XXXXXX"};
  FakeDesk m_desk;
  FixedMachine m_machine{m_folder.path()};
  Session m_session{m_desk, m_machine};
  std::unique_ptr<Screen> m_opened;
  Form* m_screen = nullptr;
};
