#include "ledger/ModDaXie.h"

#include "platform/NumberText.h"
#include "screen/Desk.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ModDaXie {
namespace {

constexpr double LargestAmount = 999999999999.99;

QString numeral(QStringView digits)
{
  static const QString Numerals = u"零壹贰叁肆伍陆柒捌玖"_s;
  return digits.size() == 1 && digits[0] >= u'0' && digits[0] <= u'9' ? Numerals.mid(digits[0].unicode() - u'0', 1) : QString();
}

QString numeralAt(QStringView digits, qsizetype at)
{
  return numeral(digits.mid(at, 1));
}

// One to four digits with their places; the replacements merge zeros, in this order.
QString groupCapital(QStringView digits)
{
  static constexpr const char16_t* Places[] = {u"仟", u"佰", u"拾", u""};
  const qsizetype length = digits.size();
  if (length < 1 || length > 4)
    return {};
  QString text;
  for (qsizetype i = 0; i < length; ++i)
    text += numeralAt(digits, i) + QString::fromUtf16(Places[4 - length + i]);
  if (length >= 4)
    text.replace(u"零仟"_s, u"零"_s);
  if (length >= 3)
    text.replace(u"零佰"_s, u"零"_s);
  if (length >= 2)
    text.replace(u"零拾"_s, u"零"_s);
  for (qsizetype times = length - 1; times > 0; --times)
    text.replace(u"零零"_s, u"零"_s);
  return text.replace(u"拾零"_s, u"拾"_s);
}

QString withoutTailZero(QString text)
{
  for (const char* tail : {"佰零", "仟零", "万零", "亿零"})
    if (text.endsWith(QString::fromUtf8(tail))) {
      text.chop(1);
      break;
    }
  return text;
}

QString integerCapital(QStringView digits)
{
  const qsizetype length = digits.size();
  QString text;
  if (length <= 4) {
    text = groupCapital(digits);
  } else if (length <= 8) {
    text = groupCapital(digits.left(length - 4)) + u'万' + groupCapital(digits.right(4));
    text.replace(u"零万"_s, u"万"_s).replace(u"零零"_s, u"零"_s);
  } else if (length <= 12) {
    text = groupCapital(digits.left(length - 8)) + u'亿' + groupCapital(digits.mid(length - 8, 4)) + u'万' + groupCapital(digits.right(4));
    text.replace(u"零亿"_s, u"亿"_s).replace(u"零万"_s, u"零"_s).replace(u"零零"_s, u"零"_s).replace(u"零零"_s, u"零"_s);
  }
  return withoutTailZero(text);
}

QString decimalCapital(QStringView digits, const QString& kind)
{
  if (kind != u"货币型")
    return numeral(digits);
  if (digits.size() == 1)
    return numeral(digits) + u"角整"_s;
  QString text = numeralAt(digits, 0) + u'角' + numeralAt(digits, 1) + u'分';
  return text.replace(u"零角"_s, u"零"_s);
}

QString capitalOf(const QString& plain, const QString& kind)
{
  const qsizetype point = plain.indexOf(u'.');
  if (point >= 0)
    return integerCapital(QStringView(plain).left(point)) + u'元' + decimalCapital(QStringView(plain).mid(point + 1), kind);
  return integerCapital(plain) + (kind == u"货币型" ? u"元整"_s : QString());
}

} // namespace

QString CapitalAmountText(Desk& desk, QString& amount, const QString& kind)
{
  const double value = NumberText::numericPrefix(amount);
  if (value > LargestAmount) {
    desk.inform(u"数字太大，无法换算，请输入一万亿元以下的金额！"_s);
    return {};
  }
  if (!NumberText::isNumeric(amount))
    return u" "_s;
  amount = NumberText::plain(std::abs(value)).trimmed();
  return (value < 0 ? u"负"_s : QString()) + capitalOf(amount, kind);
}

} // namespace ModDaXie
