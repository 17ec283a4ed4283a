#include "ledger/Money.h"

#include "database/Value.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"

namespace ModFuntion {
namespace {

constexpr int UsualDecimals = 2;

// `decimal` is a plain decimal number without exponent.
QString shown(const QString& decimal, int decimals)
{
  switch (decimals) {
  case -1: return NumberText::fixedOfDecimal(decimal, UsualDecimals, true);
  case -2: return NumberText::plain(NumberText::numericPrefix(decimal));
  case -3: return NumberText::fixedOfDecimal(decimal, UsualDecimals, false);
  default: return NumberText::fixedOfDecimal(decimal, qBound(0, decimals, 15), true);
  }
}

float rateOf(Session& session, const Statement& statement)
{
  const Recordset rs = OpenRecordset(session, statement);
  return rs.eof() ? 1.0F : float(rs.number("Rate"));
}

} // namespace

QString FormatDotText(const QString& text, int decimals)
{
  if (text.isEmpty())
    return {};
  QString number = text;
  number.replace(u'。', u'.').remove(u',').remove(u'￥');
  return shown(NumberText::ofDouble(NumberText::numericPrefix(number)), decimals);
}

QString FormatDotText(const Value& value, int decimals)
{
  return value.isNull() ? QString() : FormatDotText(value.toText(), decimals);
}

QString FormatDotText(Currency amount, int decimals)
{
  return shown(amount.toText(), decimals);
}

QString StripMoneyText(const QString& text)
{
  QString stripped = text;
  return stripped.remove(u',').remove(u'。').remove(u'￥');
}

Currency MoneyOf(const QString& screenText)
{
  return Currency::ofText(StripMoneyText(screenText));
}

float GetMoneyRate(Session& session, const QString& moneyName)
{
  return rateOf(session, {u"select Rate from TabMoneyType where Name='{}' ", Trim(moneyName)});
}

QString GetBaseMoneyName(Session& session)
{
  const Recordset rs = OpenRecordset(session, {u"select Name from TabMoneyType where IsBWB='是' "});
  return rs.eof() ? QString() : rs.text("Name");
}

float GetBaseMoneyRate(Session& session)
{
  return rateOf(session, {u"select Rate from TabMoneyType where IsBWB='是' "});
}

bool IsAuditedOnly(Session& session)
{
  const Recordset rs = OpenRecordset(session, {u"select IsAllow from TabSysSetNew  where Name='审核单据参与核算' "});
  return !rs.eof() && rs.number("IsAllow") == 1;
}

} // namespace ModFuntion
