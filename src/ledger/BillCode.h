#pragma once

#include <QString>

struct Session;

namespace ModFuntion {

// The code of a new bill or voucher: prefix, today's date by the machine's clock (eight digits) and a serial of at
// least four, one above the highest of the day in `table`. The highest is the greatest text, so serials repeat after
// 9999. Nothing is reserved: two operators who save at the same time get the same code, and only the writer's own
// check detects it.
//
// `prefix` has three letters. A stored code whose date part is not a date throws RunTimeError.
QString GetNextBillCode(Session& session, const QString& prefix, const QString& table);

} // namespace ModFuntion
