#include "ledger/ModDaXie.h"

#include "platform/NumberText.h"
#include "screen/Desk.h"

#include <cmath>

namespace ModDaXie {
namespace {

constexpr double LargestAmount = 999999999999.99;

QString numeral(QStringView digits)
{
  static const QString Numerals = QStringLiteral("零壹贰叁肆伍陆柒捌玖");
  return digits.size() == 1 && digits[0] >= u'0' && digits[0] <= u'9' ? Numerals.mid(digits[0].unicode() - u'0', 1) : QString();
}

QString numeralAt(QStringView digits, qsizetype at)
{
  return numeral(digits.mid(at, 1));
}

// One to four digits with their places; the replacements close up zeros, in this order.
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
    text.replace("零仟", "零");
  if (length >= 3)
    text.replace("零佰", "零");
  if (length >= 2)
    text.replace("零拾", "零");
  for (qsizetype times = length - 1; times > 0; --times)
    text.replace("零零", "零");
  return text.replace("拾零", "拾");
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
    text.replace("零万", "万").replace("零零", "零");
  } else if (length <= 12) {
    text = groupCapital(digits.left(length - 8)) + u'亿' + groupCapital(digits.mid(length - 8, 4)) + u'万' + groupCapital(digits.right(4));
    text.replace("零亿", "亿").replace("零万", "零").replace("零零", "零").replace("零零", "零");
  }
  return withoutTailZero(text);
}

QString decimalCapital(QStringView digits, const QString& kind)
{
  if (kind != u"货币型")
    return numeral(digits);
  if (digits.size() == 1)
    return numeral(digits) + "角整";
  QString text = numeralAt(digits, 0) + "角" + numeralAt(digits, 1) + "分";
  return text.replace("零角", "零");
}

QString capitalOf(const QString& plain, const QString& kind)
{
  const qsizetype point = plain.indexOf(u'.');
  if (point >= 0)
    return integerCapital(QStringView(plain).left(point)) + "元" + decimalCapital(QStringView(plain).mid(point + 1), kind);
  return integerCapital(plain) + (kind == u"货币型" ? QStringLiteral("元整") : QString());
}

} // namespace

QString CapitalAmountText(Desk& desk, QString& amount, const QString& kind)
{
  const double value = NumberText::numericPrefix(amount);
  if (value > LargestAmount) {
    desk.inform(QStringLiteral("数字太大，无法换算，请输入一万亿元以下的金额！"));
    return {};
  }
  if (!NumberText::isNumeric(amount))
    return QStringLiteral(" ");
  amount = NumberText::plain(std::abs(value)).trimmed();
  return (value < 0 ? QStringLiteral("负") : QString()) + capitalOf(amount, kind);
}

} // namespace ModDaXie
