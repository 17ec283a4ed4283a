#include "settlement/SingleMoney.h"

#include "platform/NumberText.h"

namespace SingleMoney {
namespace {

Currency shown(float amount)
{
  return Currency::ofText(NumberText::ofSingle(amount));
}

} // namespace

float of(const QString& cell)
{
  return float(NumberText::numericPrefix(cell));
}

QString difference(float from, std::initializer_list<float> less)
{
  Currency rest = shown(from);
  for (const float amount : less)
    rest = rest - shown(amount);
  return rest.toText();
}

} // namespace SingleMoney
