#pragma once

#include <QStringList>
#include <optional>

// The codes of one month's bills, in order, with a current position, for browsing. It is read only at the start and
// after each save, so it may still contain the code of a deleted bill.
class BillList {
public:
  // Moves to the first code.
  void setCodes(const QStringList& codes);

  // The previous or next code, wrapping around; nothing in an empty list.
  std::optional<QString> previous() { return step(-1); }
  std::optional<QString> next() { return step(1); }

private:
  std::optional<QString> step(int by);

  QStringList m_codes;
  qsizetype m_at = 0;
};
