#pragma once

#include "platform/Currency.h"

// Amounts of the sample firm, which knows nothing smaller than a fen.
namespace SampleFirm {

constexpr Currency fen(int count)
{
  return Currency::ofTenThousandths(std::int64_t(count) * 100);
}

constexpr Currency yuan(int count)
{
  return Currency::ofTenThousandths(std::int64_t(count) * 10000);
}

// Half of it in whole yuan.
Currency halfOf(Currency money);

// Rounded to fen, half upwards.
Currency percentOf(Currency money, int percent);

} // namespace SampleFirm
