#include "spreadsheet/office/EnteredText.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

std::optional<double> enteredNumber(const QString& text)
{
  constexpr int ExactDigits = 15;
  static const QRegularExpression amount(uR"(^-?(0|[1-9]\d{0,2}(,\d{3})+|[1-9]\d*)(\.\d+)?$)"_s);
  if (!amount.match(text).hasMatch() || std::count_if(text.begin(), text.end(), [](QChar sign) { return sign.isDigit(); }) > ExactDigits)
    return std::nullopt;
  return QString(text).remove(u',').toDouble();
}
