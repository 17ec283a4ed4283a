#include "samplefirm/SampleMoney.h"

namespace SampleFirm {

Currency halfOf(Currency money)
{
  return yuan(int(money.tenThousandths() / 2 / yuan(1).tenThousandths()));
}

Currency percentOf(Currency money, int percent)
{
  const std::int64_t exact = money.tenThousandths() * percent / 100;
  return fen(int((exact + fen(1).tenThousandths() / 2) / fen(1).tenThousandths()));
}

} // namespace SampleFirm
