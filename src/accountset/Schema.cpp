#include "accountset/Schema.h"

namespace Schema {

std::vector<Table> allTables()
{
  std::vector<Table> tables;
  for (const auto subject : {settingTables(), masterTables(), cashBillTables(), goodsBillTables(), voucherTables()})
    tables.insert(tables.end(), subject.begin(), subject.end());
  return tables;
}

} // namespace Schema
