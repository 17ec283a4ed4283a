#include "database/Value.h"

#include "platform/NumberText.h"

#include <cmath>

Value Value::ofInteger(std::int64_t value)
{
  Value made;
  made.m_kind = Kind::Integer;
  made.m_integer = value;
  return made;
}

Value Value::ofReal(double value)
{
  Value made;
  made.m_kind = Kind::Real;
  made.m_real = value;
  return made;
}

Value Value::ofText(QString text)
{
  Value made;
  made.m_kind = Kind::Text;
  made.m_text = std::move(text);
  return made;
}

QString Value::toText() const
{
  switch (m_kind) {
  case Kind::Null: return {};
  case Kind::Integer: return QString::number(m_integer);
  case Kind::Real: return NumberText::ofDouble(m_real);
  case Kind::Text: return m_text;
  }
  return {};
}

double Value::toNumber() const
{
  switch (m_kind) {
  case Kind::Null: return 0;
  case Kind::Integer: return double(m_integer);
  case Kind::Real: return m_real;
  case Kind::Text: return NumberText::numericPrefix(m_text);
  }
  return 0;
}

std::int64_t Value::toInteger() const
{
  if (m_kind == Kind::Integer)
    return m_integer;
  const double rounded = std::nearbyint(toNumber());
  return std::abs(rounded) < 9.0e18 ? std::int64_t(rounded) : 0;
}
