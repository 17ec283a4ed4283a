#include "ledger/Balance.h"

#include "ledger/AccountingCalendar.h"
#include "ledger/BalanceStatement.h"
#include "ledger/BillFilter.h"
#include "platform/DateText.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace ModFuntion {
namespace {

// Without a closing all movements count.
QDate beforeAllBills()
{
  return QDate(1900, 1, 1);
}

// A failed statement has shown its box and counts as an empty result.
bool hasRow(const Recordset& rs)
{
  return rs.isOpen() && !rs.eof();
}

QString mainBook(Session& session)
{
  const Recordset rs = OpenRecordset(session, {u"select * from TabAccountantNameSet  where Main=1 "});
  return hasRow(rs) ? rs.trimmed("Code") : u"1"_s;
}

std::optional<QDate> lastClosing(Session& session, const QDate& date)
{
  const Recordset rs = OpenRecordset(session, lastClosingQuery(session, "TabTurn", date));
  return hasRow(rs) ? DateText::parse(rs.text("Datee")) : std::nullopt;
}

// The first row, not a sum: for all currencies only the first opening balance counts.
Currency openingBalance(Session& session, const QString& code, const std::optional<QDate>& closing, const QString& moneyName)
{
  const Statement list = isAllCurrencies(moneyName) ? Statement(u"SumMoney*MoneyRate as SumMoney") : Statement(u"SumMoney");
  const Statement which = closing ? Statement(u"Datee={}", SqlDialect::date(session, *closing)) : Statement(u"Num=1");
  const Recordset rs = OpenRecordset(session, {u"select     {}   from TabClientTurn    where  Code='{}'  and {}{}", list, code, which,
                                               BuildBillFilter({.moneyName = moneyName})});
  return hasRow(rs) ? Currency::ofDouble(rs.number("SumMoney")) : Currency();
}

} // namespace

Currency GetOutstandingBalance(Session& session, const QString& code, const QDate& date, const QString& moneyName, bool auditedOnly)
{
  const QString book = mainBook(session);
  const auto closing = lastClosing(session, date);
  const Currency opening = openingBalance(session, code, closing, moneyName);
  const Recordset moved =
      OpenRecordset(session, movementStatement(session, {code, closing.value_or(beforeAllBills()), date, moneyName, auditedOnly, book}));
  const auto sum = [&moved](const char* name) { return hasRow(moved) ? Currency::ofDouble(moved.number(name)) : Currency(); };

  const Currency owedToUs = sum("SumMoneyy") - (sum("SumCashh") + sum("SumCreditt"));
  const Currency owedByUs = sum("SumMoneyy_G") - (sum("SumCashh_G") + sum("SumCreditt_G"));
  return opening + owedToUs - owedByUs;
}

bool IsClientAccountWLHS(Session& session, const QString& code, const QString& kind)
{
  const QString column = partnerAccountColumn(kind);
  if (code.isEmpty() || column.isEmpty())
    return false;
  const Recordset rs = OpenRecordset(session, {u"select TabAccountantType.WLHS  from  TabAccountantType,TabClient "
                                               u" where TabClient.Code='{}'  and TabClient.{}=TabAccountantType.Code ",
                                               code, SqlName(column)});
  return hasRow(rs) && rs.number("WLHS") == 1;
}

} // namespace ModFuntion
