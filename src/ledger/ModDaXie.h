#pragma once

#include <QString>

class Desk;

// Spells an amount in Chinese capital numerals, as cheques and printed bills require it.
namespace ModDaXie {

// The amount of a text, as money ("货币型": "元", "角", "分") or, for any other kind, only its integer part. One space if
// the text is not a number; empty, after a message, above 999999999999.99. The caller's text is replaced by the plain
// text of the amount without its sign.
QString CapitalAmountText(Desk& desk, QString& amount, const QString& kind);

} // namespace ModDaXie
