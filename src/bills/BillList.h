#pragma once

#include <QStringList>
#include <optional>

// The codes of one month's bills, in order, with a place in them: what the operator browses. It is
// read at the start and after each save, and by nothing else, so a bill deleted since still has its
// code here.
class BillList {
public:
  // A new list stands at its first code.
  void setCodes(const QStringList& codes);

  // One code back or on, round the ends; nothing in an empty list.
  std::optional<QString> previous() { return step(-1); }
  std::optional<QString> next() { return step(1); }

private:
  std::optional<QString> step(int by);

  QStringList m_codes;
  qsizetype m_at = 0;
};
