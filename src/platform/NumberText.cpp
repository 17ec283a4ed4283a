#include "platform/NumberText.h"

#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace NumberText {
namespace {

bool isDigit(QChar c)
{
  return c >= u'0' && c <= u'9';
}

qsizetype skipDigits(QStringView text, qsizetype at)
{
  while (at < text.size() && isDigit(text[at]))
    ++at;
  return at;
}

// Where the number that starts at `start` ends; `start` itself if there is none.
qsizetype numberEnd(QStringView text, qsizetype start)
{
  qsizetype at = start;
  if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
    ++at;
  const qsizetype whole = at;
  at = skipDigits(text, at);
  qsizetype digits = at - whole;
  if (at < text.size() && text[at] == u'.') {
    const qsizetype fraction = at + 1;
    at = skipDigits(text, fraction);
    digits += at - fraction;
  }
  if (digits == 0)
    return start;
  if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
    qsizetype exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == u'-' || text[exponent] == u'+'))
      ++exponent;
    const qsizetype end = skipDigits(text, exponent);
    if (end > exponent)
      return end;
  }
  return at;
}

qsizetype skipBlanks(QStringView text)
{
  qsizetype at = 0;
  while (at < text.size() && text[at].isSpace())
    ++at;
  return at;
}

// "1.5e+20" without its exponent.
QString withoutExponent(const QString& scientific)
{
  const qsizetype e = scientific.indexOf(u'e');
  if (e < 0)
    return scientific;
  const int exponent = QStringView(scientific).mid(e + 1).toInt();
  const bool negative = scientific.startsWith(u'-');
  QString mantissa = scientific.mid(negative ? 1 : 0, e - (negative ? 1 : 0));
  qsizetype point = mantissa.indexOf(u'.');
  if (point < 0)
    point = mantissa.size();
  else
    mantissa.remove(point, 1);
  point += exponent;
  if (point <= 0)
    mantissa = u"0."_s + QString(-point, u'0') + mantissa;
  else if (point >= mantissa.size())
    mantissa += QString(point - mantissa.size(), u'0');
  else
    mantissa.insert(point, u'.');
  return negative ? u'-' + mantissa : mantissa;
}

QString significant(double value, int digits)
{
  if (value == 0 || !std::isfinite(value))
    return u"0"_s;
  return withoutExponent(QString::number(value, 'g', digits));
}

// Adds one to the last digit of a text of digits, carrying; may grow by one digit.
void addOne(QString& digits)
{
  for (qsizetype i = digits.size() - 1; i >= 0; --i) {
    if (digits[i] != u'9') {
      digits[i] = QChar(digits[i].unicode() + 1);
      return;
    }
    digits[i] = u'0';
  }
  digits.prepend(u'1');
}

} // namespace

double numericPrefix(QStringView text)
{
  const qsizetype start = skipBlanks(text);
  const qsizetype end = numberEnd(text, start);
  if (end == start)
    return 0;
  const QByteArray latin = text.mid(start, end - start).toLatin1();
  const char* begin = latin.constData() + (latin.startsWith('+') ? 1 : 0);
  double value = 0;
  const auto result = std::from_chars(begin, latin.constData() + latin.size(), value);
  return result.ec == std::errc() && std::isfinite(value) ? value : 0;
}

bool isNumeric(QStringView text)
{
  const QStringView trimmed = text.trimmed();
  return !trimmed.isEmpty() && numberEnd(trimmed, 0) == trimmed.size();
}

QString ofDouble(double value)
{
  return significant(value, 15);
}

QString ofSingle(float value)
{
  return significant(double(value), 7);
}

QString plain(double value)
{
  QString text = ofDouble(value);
  const bool negative = text.startsWith(u'-');
  if (negative)
    text.remove(0, 1);
  if (text.startsWith(u"0."))
    text.remove(0, 1);
  return (negative ? u'-' : u' ') + text;
}

QString fixedOfDecimal(const QString& decimal, int decimals, bool grouped)
{
  const bool negative = decimal.startsWith(u'-');
  const QString unsignedText = negative ? decimal.mid(1) : decimal;
  const qsizetype point = unsignedText.indexOf(u'.');
  QString whole = point < 0 ? unsignedText : unsignedText.left(point);
  QString fraction = point < 0 ? QString() : unsignedText.mid(point + 1);
  const bool up = fraction.size() > decimals && fraction[decimals] >= u'5';
  fraction = fraction.leftJustified(decimals, u'0', true);
  QString digits = (whole.isEmpty() ? u"0"_s : whole) + fraction;
  if (up)
    addOne(digits);
  whole = digits.left(digits.size() - decimals);
  fraction = digits.right(decimals);
  if (grouped)
    for (qsizetype at = whole.size() - 3; at > 0; at -= 3)
      whole.insert(at, u',');
  const bool zero = digits.count(u'0') == digits.size();
  return (negative && !zero ? u"-"_s : QString()) + whole + (decimals > 0 ? u'.' + fraction : QString());
}

} // namespace NumberText
