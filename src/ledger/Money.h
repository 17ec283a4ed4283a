#pragma once

#include "platform/Currency.h"

#include <QString>

struct Session;
class Value;

// Formatting and parsing of amounts, currencies and rates.
namespace ModFuntion {

// A number as the screen shows it, by a decimal setting of DotType: 0 or more decimals or -1 with thousands
// separators, -3 without, -2 plain text with a leading space. An empty text stays empty; "。" counts as the point,
// separators and "￥" are ignored, and non-numeric text yields its numeric prefix.
QString FormatDotText(const QString& text, int decimals);
QString FormatDotText(const Value& value, int decimals);
QString FormatDotText(Currency amount, int decimals);

// A text without any "," "。" "￥": the reverse of FormatDotText, to be read as a number.
QString StripMoneyText(const QString& text);

// The amount in a text of the screen.
Currency MoneyOf(const QString& screenText);

// Rate of a currency, in single precision; 1 if it is not in the list.
float GetMoneyRate(Session& session, const QString& moneyName);
// The base currency; empty, and rate 1, if none is marked.
QString GetBaseMoneyName(Session& session);
float GetBaseMoneyRate(Session& session);

// True if only audited bills take part in accounting.
bool IsAuditedOnly(Session& session);

} // namespace ModFuntion
