#include "database/Value.h"

#include "platform/NumberText.h"

#include <cmath>

QString Value::toText() const
{
  if (const auto* const text = std::get_if<QString>(&m_content))
    return *text;
  if (const auto* const integer = std::get_if<std::int64_t>(&m_content))
    return QString::number(*integer);
  return isNull() ? QString() : NumberText::ofDouble(std::get<double>(m_content));
}

double Value::toNumber() const
{
  if (const auto* const text = std::get_if<QString>(&m_content))
    return NumberText::numericPrefix(*text);
  if (const auto* const integer = std::get_if<std::int64_t>(&m_content))
    return double(*integer);
  return isNull() ? 0 : std::get<double>(m_content);
}

std::int64_t Value::toInteger() const
{
  if (const auto* const integer = std::get_if<std::int64_t>(&m_content))
    return *integer;
  const double rounded = std::nearbyint(toNumber());
  return std::abs(rounded) < 9.0e18 ? std::int64_t(rounded) : 0;
}
