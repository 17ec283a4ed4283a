#pragma once

#include "billstore/BillStore.h"
#include "session/Session.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"

// Writes payments as their screen does: draws a number, saves the bill and makes its voucher, as one transaction.
class PaymentWriter {
public:
  // The account set is the sample firm of `params`, below `folder` if it is a file.
  PaymentWriter(const QString& folder, const SessionParams& params) : m_machine(folder) { m_session.params = params; }

  struct Outcome {
    bool isWritten = false; // false: the number was taken, or an error ended the save
    QStringList boxes = {};
  };
  // One line for each amount.
  Outcome save(const QList<int>& amounts);

private:
  bool write(const QList<int>& amounts);

  FakeDesk m_desk;
  FixedMachine m_machine;
  Session m_session{m_desk, m_machine};
  BillStore m_store{m_session, BillKinds::Payment};
};
