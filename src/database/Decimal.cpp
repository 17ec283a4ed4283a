#include "database/Decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

__extension__ using Int128 = __int128;
__extension__ using Unsigned128 = unsigned __int128;

constexpr int MostDigits = 38;
// Far beyond a double, and low enough for the exponents of a product of a hundred to be added up.
constexpr int MostExponent = 100'000;

constexpr std::array<Int128, MostDigits + 1> Powers = [] {
  std::array<Int128, MostDigits + 1> powers{1};
  for (int i = 1; i <= MostDigits; ++i)
    powers[std::size_t(i)] = powers[std::size_t(i) - 1] * 10;
  return powers;
}();

Int128 power(int digits)
{
  return Powers[std::size_t(digits)];
}

Int128 magnitude(Int128 value)
{
  return value < 0 ? -value : value;
}

bool fitsWord(Int128 value)
{
  return value == std::int64_t(value);
}

int digitsOf(Int128 value)
{
  return int(std::upper_bound(Powers.begin(), Powers.end(), magnitude(value)) - Powers.begin());
}

// The same double, or one that differs in the last bit or two.
bool isNeighbour(double one, double other)
{
  return std::abs(one - other) <= std::abs(other) * std::numeric_limits<double>::epsilon();
}

bool isDigit(char c)
{
  return c >= '0' && c <= '9';
}

} // namespace

static_assert(alignof(Decimal) == 8, "the engine's memory is aligned to eight");

Decimal Decimal::ofDouble(double value)
{
  // Amounts with four decimals, rates with eight, then anything else.
  for (const int decimals : {4, 8}) {
    const auto unit = double(power(decimals));
    const double count = std::nearbyint(value * unit);
    if (std::abs(count) < 1e15 && isNeighbour(count / unit, value))
      return Decimal(std::int64_t(count), -decimals);
  }
  char text[32];
  const auto read = [&text](const std::to_chars_result& written) { return ofText({text, std::size_t(written.ptr - text)}).value; };
  const Decimal rounded = read(std::to_chars(std::begin(text), std::end(text), value, std::chars_format::scientific, 14));
  if (isNeighbour(rounded.toDouble().value_or(0), value))
    return rounded;
  return read(std::to_chars(std::begin(text), std::end(text), value, std::chars_format::scientific));
}

Decimal::Prefix Decimal::ofText(std::string_view text)
{
  const auto* at = text.begin();
  const auto* const end = text.end();
  while (at != end && (*at == ' ' || (*at >= '\t' && *at <= '\r')))
    ++at;
  const bool isNegative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+'))
    ++at;
  Decimal read;
  bool hasPoint = false;
  bool hasDigits = false;
  for (; at != end && (isDigit(*at) || (*at == '.' && !hasPoint)); ++at) {
    if (*at == '.') {
      hasPoint = true;
      continue;
    }
    hasDigits = true;
    const bool taken = read.m_coefficient < power(MostDigits - 1);
    if (taken)
      read.m_coefficient = read.m_coefficient * 10 + (*at - '0');
    read.m_exponent = std::clamp(read.m_exponent + !taken - hasPoint, -MostExponent, MostExponent);
  }
  bool hasExponent = false;
  if (hasDigits && at != end && (*at == 'e' || *at == 'E')) {
    const auto* digits = at + 1;
    const bool isLess = digits != end && *digits == '-';
    if (digits != end && (*digits == '-' || *digits == '+'))
      ++digits;
    int exponent = 0;
    for (; digits != end && isDigit(*digits); ++digits, hasExponent = true)
      exponent = std::min(exponent * 10 + (*digits - '0'), MostExponent);
    read.m_exponent = std::clamp(read.m_exponent + (isLess ? -exponent : exponent), -MostExponent, MostExponent);
  }
  return {isNegative ? -read : read, !hasPoint && !hasExponent};
}

Decimal Decimal::rounded(int digits) const
{
  if (digits > MostDigits)
    return Decimal(0, m_exponent + digits);
  const Int128 part = power(digits);
  const Int128 rest = magnitude(m_coefficient % part);
  const Int128 away = rest >= part - rest ? (m_coefficient < 0 ? -1 : 1) : 0;
  return Decimal(m_coefficient / part + away, m_exponent + digits);
}

Decimal Decimal::operator+(const Decimal& other) const
{
  Decimal upper = m_exponent < other.m_exponent ? other : *this;
  Decimal lower = m_exponent < other.m_exponent ? *this : other;
  if (upper.m_coefficient == 0)
    return lower;
  if (lower.m_coefficient == 0)
    return upper;
  if (const int apart = upper.m_exponent - lower.m_exponent; apart > 0) {
    // A 64-bit number has at most nineteen digits.
    const int shift = apart <= 18 && fitsWord(upper.m_coefficient) ? apart : std::min(apart, MostDigits - digitsOf(upper.m_coefficient));
    upper = Decimal(upper.m_coefficient * power(shift), upper.m_exponent - shift);
    lower = lower.rounded(apart - shift);
  }
  Int128 sum = 0;
  if (__builtin_add_overflow(upper.m_coefficient, lower.m_coefficient, &sum) || magnitude(sum) >= power(MostDigits)) {
    upper = upper.rounded(1);
    sum = upper.m_coefficient + lower.rounded(1).m_coefficient;
  }
  return Decimal(sum, upper.m_exponent);
}

Decimal Decimal::operator*(const Decimal& other) const
{
  if (fitsWord(m_coefficient) && fitsWord(other.m_coefficient))
    return Decimal(m_coefficient * other.m_coefficient, m_exponent + other.m_exponent);
  Decimal left = withoutTrailingZeros();
  Decimal right = other.withoutTrailingZeros();
  for (;;) {
    const int leftDigits = digitsOf(left.m_coefficient);
    const int rightDigits = digitsOf(right.m_coefficient);
    const int beyond = leftDigits + rightDigits - MostDigits;
    if (beyond <= 0)
      return Decimal(left.m_coefficient * right.m_coefficient, left.m_exponent + right.m_exponent);
    // Rounding up may add a digit: then round again.
    Decimal& longer = leftDigits >= rightDigits ? left : right;
    longer = longer.rounded(std::min(beyond, std::max(1, std::abs(leftDigits - rightDigits)))).withoutTrailingZeros();
  }
}

Decimal Decimal::withoutTrailingZeros() const
{
  if (m_coefficient == 0)
    return {};
  Decimal shorter = *this;
  while (shorter.m_coefficient % 10 == 0)
    shorter = Decimal(shorter.m_coefficient / 10, shorter.m_exponent + 1);
  return shorter;
}

std::optional<double> Decimal::toDouble() const
{
  // Both are exact as doubles, so that one operation rounds once.
  if (m_exponent <= 0 && m_exponent >= -22 && magnitude(m_coefficient) <= Int128(1) << 53)
    return double(std::int64_t(m_coefficient)) / double(power(-m_exponent));
  const int size = digitsOf(m_coefficient) + m_exponent;
  if (m_coefficient == 0 || size < -400)
    return 0;
  if (size > 400)
    return std::nullopt;
  const std::string text = toText();
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc() && std::isfinite(value))
    return value;
  return size > 0 ? std::nullopt : std::optional(0.0);
}

std::optional<std::int64_t> Decimal::toInteger() const
{
  const Decimal shortest = withoutTrailingZeros();
  if (shortest.m_exponent < 0 || shortest.m_exponent > 18 || !fitsWord(shortest.m_coefficient))
    return std::nullopt;
  const Int128 value = shortest.m_coefficient * power(shortest.m_exponent);
  return fitsWord(value) ? std::optional(std::int64_t(value)) : std::nullopt;
}

std::string Decimal::toText() const
{
  const Decimal shortest = withoutTrailingZeros();
  const auto half = Unsigned128(power(19));
  const auto whole = Unsigned128(magnitude(shortest.m_coefficient));
  const std::string low = std::to_string(std::uint64_t(whole % half));
  std::string text = shortest.m_coefficient < 0 ? "-" : "";
  if (whole >= half)
    text.append(std::to_string(std::uint64_t(whole / half))).append(19 - low.size(), '0');
  return text.append(low).append("e").append(std::to_string(shortest.m_exponent));
}
