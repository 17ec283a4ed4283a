#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>

// Money: a 64-bit count of ten-thousandths. Exact in addition and subtraction; every amount that a
// screen totals or compares is one. What does not fit throws RunTimeError (overflow).
class Currency {
public:
  constexpr Currency() = default;

  // Rounded to four decimals, half to even.
  static Currency ofDouble(double value);
  // The numeric prefix of a text; 0 if it has none.
  static Currency ofText(QStringView text);
  static constexpr Currency ofTenThousandths(std::int64_t count) { return Currency(count); }

  double toDouble() const { return double(m_count) / 10000; }
  // Shortest plain form: "1000", "-12.5", "0".
  QString toText() const;
  std::int64_t tenThousandths() const { return m_count; }

  bool isZero() const { return m_count == 0; }
  Currency operator-() const { return Currency() - *this; }
  Currency operator+(Currency other) const;
  Currency operator-(Currency other) const;
  Currency& operator+=(Currency other) { return *this = *this + other; }
  auto operator<=>(const Currency&) const = default;

private:
  constexpr explicit Currency(std::int64_t count) : m_count(count) {}
  std::int64_t m_count = 0;
};
