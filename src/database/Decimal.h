#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// A decimal number with an exponent. Sums, differences and products are exact as long as they have no more than 38
// digits: the product of two numbers of seventeen digits leaves four for a sum. What needs more is rounded to 38
// digits, half away from zero; nothing overflows.
class Decimal {
public:
  Decimal() = default;
  static Decimal ofInteger(std::int64_t value) { return Decimal(value, 0); }
  // What was entered, if it had at most fifteen digits: the engine may be off by one bit when it reads "8.637683".
  // Otherwise the shortest decimal that reads as this double. `value` is finite.
  static Decimal ofDouble(double value);

  struct Prefix;
  // The number at the start of a text, as the engine reads it: 0 if there is none.
  static Prefix ofText(std::string_view text);

  Decimal operator-() const { return Decimal(-m_coefficient, m_exponent); }
  Decimal operator+(const Decimal& other) const;
  Decimal operator-(const Decimal& other) const { return *this + -other; }
  Decimal operator*(const Decimal& other) const;

  // The nearest double; nothing if it is beyond the largest.
  std::optional<double> toDouble() const;
  // Nothing if it is not whole or does not fit.
  std::optional<std::int64_t> toInteger() const;
  // "-125e-1": one text for each number, which ofText reads back.
  std::string toText() const;

private:
  // The engine allocates the state of an aggregate at a multiple of eight.
  __extension__ typedef __int128 Int128 __attribute__((aligned(8)));

  Decimal(Int128 coefficient, int exponent) : m_coefficient(coefficient), m_exponent(exponent) {}

  Decimal rounded(int digits) const;
  Decimal withoutTrailingZeros() const;

  Int128 m_coefficient = 0; // of 38 digits at most
  int m_exponent = 0;
};

struct Decimal::Prefix {
  Decimal value;
  bool isInteger; // written without point and exponent
};
