#include "bills/BillList.h"

void BillList::setCodes(const QStringList& codes)
{
  m_codes = codes;
  m_at = 0;
}

std::optional<QString> BillList::step(int by)
{
  if (m_codes.isEmpty())
    return std::nullopt;
  m_at = (m_at + by + m_codes.size()) % m_codes.size();
  return m_codes[m_at];
}
