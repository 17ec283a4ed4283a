#pragma once

#include "screen/EntryBox.h"

struct Session;

// A box for an amount: plain digits while it is typed, formatted when it is left.
class AmountBox : public EntryBox {
  Q_OBJECT

public:
  AmountBox(const Session& session, QObject* parent, QAnyStringView name, const QString& allowed = {});

  // The text that it has, or will have, when it is left.
  QString formatted() const;

private:
  const Session& m_session;
};
