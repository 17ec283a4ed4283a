#include "platform/Currency.h"

#include "platform/NumberText.h"
#include "platform/RunTimeError.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void overflow()
{
  throw RunTimeError(RunTimeError::Overflow, u"溢出"_s);
}

} // namespace

Currency Currency::ofDouble(double value)
{
  // An amount of four decimals or less, as nearly all are, needs no rounding.
  if (const Currency exact(std::abs(value) < 1e11 ? std::llround(value * 10000) : 0); exact.toDouble() == value)
    return exact;
  if (!std::isfinite(value))
    overflow();
  // The decimal text is rounded, so that 1.00005 is a tie although its binary value is not.
  QString text = NumberText::ofDouble(value);
  const bool negative = text.startsWith(u'-');
  if (negative)
    text.remove(0, 1);
  const qsizetype point = text.indexOf(u'.');
  const QString fraction = point < 0 ? QString() : text.mid(point + 1);
  bool fits = false;
  const QString digits = (point < 0 ? text : text.left(point)) + fraction.leftJustified(4, u'0', true);
  qint64 count = digits.toLongLong(&fits);
  if (!fits)
    overflow();
  const QStringView rest = QStringView(fraction).mid(qMin<qsizetype>(4, fraction.size()));
  if (!rest.isEmpty() && rest[0] >= u'5') {
    const bool tie = rest[0] == u'5' && rest.mid(1).count(u'0') == rest.size() - 1;
    if (!tie || count % 2 != 0)
      ++count;
  }
  return Currency(negative ? -count : count);
}

Currency Currency::ofText(QStringView text)
{
  return ofDouble(NumberText::numericPrefix(text));
}

QString Currency::toText() const
{
  const quint64 size = m_count < 0 ? 0 - quint64(m_count) : quint64(m_count);
  QString text = QString::number(size / 10000);
  QString fraction = QString::number(size % 10000).rightJustified(4, u'0');
  while (fraction.endsWith(u'0'))
    fraction.chop(1);
  if (!fraction.isEmpty())
    text += u'.' + fraction;
  return m_count < 0 ? u'-' + text : text;
}

Currency Currency::operator+(Currency other) const
{
  std::int64_t sum = 0;
  if (__builtin_add_overflow(m_count, other.m_count, &sum))
    overflow();
  return Currency(sum);
}

Currency Currency::operator-(Currency other) const
{
  std::int64_t difference = 0;
  if (__builtin_sub_overflow(m_count, other.m_count, &difference))
    overflow();
  return Currency(difference);
}
