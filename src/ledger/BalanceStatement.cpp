#include "ledger/BalanceStatement.h"

#include "ledger/Balance.h"
#include "ledger/BillFilter.h"
#include "ledger/BillKinds.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <array>

using namespace Qt::StringLiterals;

namespace ModFuntion {
namespace {

constexpr std::array<SqlLiteral, 6> Sums = {u"SumMoneyy", u"SumCashh", u"SumCreditt", u"SumMoneyy_G", u"SumCashh_G", u"SumCreditt_G"};
using Amounts = std::array<SqlLiteral, Sums.size()>;
constexpr SqlLiteral None;

enum class Source { GoodsBills, FundLines, OffsetLines, Vouchers };

// One kind of a partner's movements, and the sums that they change; the others are empty.
struct Arm {
  Source source;
  const char* table;    // if it is queried alone
  const char16_t* type; // of offsets their SustainType; of vouchers the kind of account
  SqlLiteral accounts;  // of fund lines: the prefix of the account's code
  Amounts amounts;
};

// Cash accounts begin with 1001, bank accounts with 1002; money on any other account does not change the balance.
constexpr Arm Arms[] = {
    {Source::GoodsBills, "TabOutBill", u"", u"", {u"(SumMoney-AllDiscount)", u"Cash", u"Credit"}},
    {Source::GoodsBills, "TabOutCancleBill", u"", u"", {u"-(SumMoney-AllDiscount)", u"-Cash", u"-Credit"}},
    {Source::FundLines, BillKinds::ReceiptLines.table, u"", u"1001", {None, u"Moneyy"}},
    {Source::FundLines, BillKinds::ReceiptLines.table, u"", u"1002", {None, None, u"Moneyy"}},
    {Source::OffsetLines, "", BillKinds::CustomerOffset.type, u"", {None, None, u"TabSustainInf.Moneyy"}},
    {Source::Vouchers, "", u"应收", u"", {u"(Debtor-Lender)"}},
    {Source::Vouchers, "", u"预收", u"", {u"(Debtor-Lender)"}},
    {Source::GoodsBills, "TabInBill", u"", u"", {None, None, None, u"(SumMoney-AllDiscount)", u"Cash", u"Credit"}},
    {Source::GoodsBills, "TabInCancleBill", u"", u"", {None, None, None, u"-(SumMoney-AllDiscount)", u"-Cash", u"-Credit"}},
    {Source::FundLines, BillKinds::PaymentLines.table, u"", u"1001", {None, None, None, None, u"Moneyy"}},
    {Source::FundLines, BillKinds::PaymentLines.table, u"", u"1002", {None, None, None, None, None, u"Moneyy"}},
    {Source::OffsetLines, "", BillKinds::SupplierOffset.type, u"", {None, None, None, None, None, u"TabSustainInf.Moneyy"}},
    {Source::Vouchers, "", u"预付", u"", {None, None, None, u"(Lender-Debtor)"}},
    {Source::Vouchers, "", u"应付", u"", {None, None, None, u"(Lender-Debtor)"}},
};

// The conditions that all arms of one source share: dates, currency, audit.
struct Scopes {
  Statement bills; // of tables that are queried alone
  Statement offsets;
  Statement vouchers;
};

// The days of the movements. If the closing is on that very day, nothing remains to add.
Statement range(const Session& session, const MovementQuery& query, SqlLiteral dateColumn)
{
  const Statement column(dateColumn);
  const Statement after = SqlDialect::date(session, query.lastClosing);
  const Statement until = SqlDialect::date(session, query.date);
  return query.lastClosing == query.date ? Statement(u"{}>{} and {}<{}", column, after, column, until)
                                         : Statement(u"{}>{} and {}<={}", column, after, column, until);
}

Scopes scopesOf(const Session& session, const MovementQuery& query)
{
  const bool auditedOnly = query.auditedOnly;
  return {range(session, query, u"Datee") + BuildBillFilter({.auditedOnly = auditedOnly, .moneyName = query.moneyName}),
          range(session, query, u"TabSustainInf.Datee") +
              BuildBillFilter({.table = u"TabSustainInf"_s, .auditedOnly = auditedOnly, .moneyName = query.moneyName}),
          range(session, query, u"TabWarrant.Datee") + BuildBillFilter({.table = u"TabWarrant"_s, .auditedOnly = auditedOnly}) +
              BuildBillFilter({.table = u"TabWarrantInf"_s, .moneyName = query.moneyName})};
}

Statement selectList(const Arm& arm, SqlLiteral rate)
{
  QList<Statement> sums;
  for (std::size_t i = 0; i < Sums.size(); ++i)
    sums.append(arm.amounts[i].isEmpty() ? Statement(u"0 as {}", Statement(Sums[i]))
                                         : Statement(u"sum({}{}) as {}", Statement(arm.amounts[i]), Statement(rate), Statement(Sums[i])));
  return Statement::joined(sums, u", ");
}

Statement goodsBills(const MovementQuery& query, const Scopes& scopes, const Arm& arm)
{
  return {u" from {}  where UnitCode='{}' and State='正常'    and  {}", SqlName(arm.table), query.code, scopes.bills};
}

Statement fundLines(const MovementQuery& query, const Scopes& scopes, const Arm& arm)
{
  return {u" from {}  where UnitCode='{}'  and AccountantCode like '{}%'   and  {}  and  State='正常'", SqlName(arm.table), query.code,
          arm.accounts.view().toString(), scopes.bills};
}

Statement offsetLines(const MovementQuery& query, const Scopes& scopes, const Arm& arm)
{
  return {u" from TabSustainInf,TabSustain  where TabSustainInf.UnitCode='{}'   and  {}"
          u"  and  TabSustainInf.State='正常'  and  TabSustain.SustainType='{}'"
          u"  and  TabSustain.Code=TabSustainInf.Code",
          query.code, scopes.offsets, QString::fromUtf16(arm.type)};
}

// Manual vouchers only: those of bills would count a movement twice.
Statement vouchers(Session& session, const MovementQuery& query, const Scopes& scopes, const Arm& arm)
{
  const QString kind = QString::fromUtf16(arm.type);
  const bool keptByPartners = IsClientAccountWLHS(session, query.code, kind);
  return {u" from  TabWarrant,TabWarrantInf ,TabAccountantType,TabClient "
          u" where (TabWarrant.JXCBillCode='' or {})   and {}"
          u" and  TabAccountantType.Code =TabClient.{}   and TabClient.Code=  '{}' {}"
          u" and TabWarrant.Code=TabWarrantInf.BillCode "
          u" and TabWarrantInf.AccountantCode=TabAccountantType.Code "
          u" and TabWarrant.{}=1  ",
          SqlDialect::isNull(session, u"TabWarrant.JXCBillCode"),
          scopes.vouchers,
          SqlName(partnerAccountColumn(kind)),
          query.code,
          keptByPartners ? Statement(u" and TabWarrantInf.WLHS=  '{}' ", query.code) : Statement(),
          SqlName(u"AccountBook"_s + query.book)};
}

Statement fromWhere(Session& session, const MovementQuery& query, const Scopes& scopes, const Arm& arm)
{
  switch (arm.source) {
  case Source::GoodsBills: return goodsBills(query, scopes, arm);
  case Source::FundLines: return fundLines(query, scopes, arm);
  case Source::OffsetLines: return offsetLines(query, scopes, arm);
  case Source::Vouchers: return vouchers(session, query, scopes, arm);
  }
  return {};
}

SqlLiteral rateOf(const MovementQuery& query, const Arm& arm)
{
  if (!isAllCurrencies(query.moneyName))
    return {};
  return arm.source == Source::OffsetLines ? SqlLiteral(u"*TabSustainInf.MoneyRate") : SqlLiteral(u"*MoneyRate");
}

// In inventory kept separately from finance, vouchers do not count.
bool takesPart(const Session& session, const MovementQuery& query, const Arm& arm)
{
  return arm.source != Source::Vouchers || (!query.code.isEmpty() && !session.params.IsJXC);
}

} // namespace

Statement movementStatement(Session& session, const MovementQuery& query)
{
  const Scopes scopes = scopesOf(session, query);
  QList<Statement> arms;
  for (const Arm& arm : Arms)
    if (takesPart(session, query, arm))
      arms.append({u"select {}{}", selectList(arm, rateOf(query, arm)), fromWhere(session, query, scopes, arm)});
  return {u"select sum(SumMoneyy) as SumMoneyy,  sum(SumCashh) as SumCashh,  sum(SumCreditt) as SumCreditt,  "
          u" sum(SumMoneyy_G) as SumMoneyy_G,  sum(SumCashh_G) as SumCashh_G,  sum(SumCreditt_G) as SumCreditt_G   "
          u" from ( {} ) tmpTab ",
          Statement::joined(arms, u" union all  ")};
}

QString partnerAccountColumn(const QString& kind)
{
  static constexpr struct {
    const char16_t* kind;
    const char* column;
  } Columns[] = {{u"应收", "YingShouCode"}, {u"预收", "YuShouCode"}, {u"应付", "YingFuCode"}, {u"预付", "YuFuCode"}};
  for (const auto& known : Columns)
    if (kind == QStringView(known.kind))
      return QLatin1String(known.column);
  return {};
}

} // namespace ModFuntion
