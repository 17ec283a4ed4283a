#pragma once

#include "platform/Currency.h"

#include <initializer_list>

// Amounts of the write-off list: single precision, read from a cell and shown in it with seven
// significant digits.
namespace SingleMoney {

// The amount at the start of a cell's text; 0 if there is none.
float of(const QString& cell);

// `from` minus all of `less`, as a cell shows it. Computed with the seven decimal digits of each, so that a bill that
// is settled in full leaves 0 and no floating-point residue.
QString difference(float from, std::initializer_list<float> less);

} // namespace SingleMoney
