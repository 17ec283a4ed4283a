#pragma once

#include "program/ProgramScreens.h"
#include "session/Session.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"

// An operator at the payment screen, without its window.
class PayingOperator {
public:
  // The account set is that of `params`, below `folder` if it is a file.
  PayingOperator(const QString& folder, const SessionParams& params);

  // The parameters of a session on the file A001.mdb, without vouchers.
  static SessionParams onFile();

  void beginBill();
  // One line for each amount.
  void fillIn(const QList<int>& amounts);
  // What the boxes of the save said, in their order.
  QStringList save();

private:
  template <typename Kind> Kind& control(const char* name) { return *m_screen->find<Kind>(QString::fromLatin1(name)); }
  void typeIntoCell(int row, int column, const QString& text);

  FakeDesk m_desk;
  FixedMachine m_machine;
  Session m_session{m_desk, m_machine};
  ProgramScreens m_screens{m_session};
  Screen* m_screen = nullptr;
};
