#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>

// One value of a row as the database gave it: null, a whole number, a number, or a text.
class Value {
public:
  enum class Kind : std::uint8_t { Null, Integer, Real, Text };

  Value() = default;
  static Value ofInteger(std::int64_t value);
  static Value ofReal(double value);
  static Value ofText(QString text);

  Kind kind() const { return m_kind; }
  bool isNull() const { return m_kind == Kind::Null; }
  // Empty for null; numbers in their shortest plain form.
  QString toText() const;
  // The numeric prefix of a text; 0 for null.
  double toNumber() const;
  // The same as a whole number, rounded half to even; what does not fit is 0.
  std::int64_t toInteger() const;

private:
  Kind m_kind = Kind::Null;
  std::int64_t m_integer = 0;
  double m_real = 0;
  QString m_text;
};
