#pragma once

#include "billstore/BillRecord.h"
#include "database/Statement.h"

struct BillKind;

// A record as the values of its rows, each in the order of the table's columns.
namespace BillRows {

Statement header(const BillKind& kind, const BillRecord& record);
// `number` counts from 1.
Statement line(const BillKind& kind, const BillRecord& record, int number);

} // namespace BillRows
