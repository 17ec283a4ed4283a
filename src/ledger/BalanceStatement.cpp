#include "ledger/BalanceStatement.h"

#include "ledger/Balance.h"
#include "ledger/BillFilter.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <QStringList>

#include <array>

namespace ModFuntion {
namespace {

constexpr std::array Sums = {u"SumMoneyy", u"SumCashh", u"SumCreditt", u"SumMoneyy_G", u"SumCashh_G", u"SumCreditt_G"};
using Amounts = std::array<const char16_t*, Sums.size()>;

enum class Source { GoodsBills, FundLines, OffsetLines, Vouchers };

// One place where a partner's movements stand, and which sums they move. What moves nothing is null.
struct Arm {
  Source source;
  const char16_t* of;       // the table; of offsets their SustainType; of vouchers the kind of account
  const char16_t* accounts; // of fund lines: how the account's code begins
  Amounts amounts;
};

// Cash accounts begin with 1001, bank accounts with 1002; money on any other account leaves the
// balance as it is.
constexpr Arm Arms[] = {
    {Source::GoodsBills, u"TabOutBill", u"", {u"(SumMoney-AllDiscount)", u"Cash", u"Credit"}},
    {Source::GoodsBills, u"TabOutCancleBill", u"", {u"-(SumMoney-AllDiscount)", u"-Cash", u"-Credit"}},
    {Source::FundLines, u"TabGathefundBillInf", u"1001", {nullptr, u"Moneyy"}},
    {Source::FundLines, u"TabGathefundBillInf", u"1002", {nullptr, nullptr, u"Moneyy"}},
    {Source::OffsetLines, u"客户", u"", {nullptr, nullptr, u"TabSustainInf.Moneyy"}},
    {Source::Vouchers, u"应收", u"", {u"(Debtor-Lender)"}},
    {Source::Vouchers, u"预收", u"", {u"(Debtor-Lender)"}},
    {Source::GoodsBills, u"TabInBill", u"", {nullptr, nullptr, nullptr, u"(SumMoney-AllDiscount)", u"Cash", u"Credit"}},
    {Source::GoodsBills, u"TabInCancleBill", u"", {nullptr, nullptr, nullptr, u"-(SumMoney-AllDiscount)", u"-Cash", u"-Credit"}},
    {Source::FundLines, u"TabPayfundBillInf", u"1001", {nullptr, nullptr, nullptr, nullptr, u"Moneyy"}},
    {Source::FundLines, u"TabPayfundBillInf", u"1002", {nullptr, nullptr, nullptr, nullptr, nullptr, u"Moneyy"}},
    {Source::OffsetLines, u"供应商", u"", {nullptr, nullptr, nullptr, nullptr, nullptr, u"TabSustainInf.Moneyy"}},
    {Source::Vouchers, u"预付", u"", {nullptr, nullptr, nullptr, u"(Lender-Debtor)"}},
    {Source::Vouchers, u"应付", u"", {nullptr, nullptr, nullptr, u"(Lender-Debtor)"}},
};

// What all arms of one source have in common: its days, its currency, its audit.
struct Scopes {
  QString bills; // of tables that stand alone
  QString offsets;
  QString vouchers;
};

// The days of the movements. A closing on the day asked for has taken all of it in: nothing is left.
QString range(const MovementQuestion& question, const QString& prefix, const QString& after, const QString& until)
{
  const QString end = question.lastClosing == question.date ? "<" : "<=";
  return QStringLiteral("    %1Datee>%2 and %1Datee%3%4").arg(prefix, after, end, until);
}

Scopes scopesOf(const Session& session, const MovementQuestion& question)
{
  const QString after = SqlDialect::date(session, question.lastClosing);
  const QString until = SqlDialect::date(session, question.date);
  const bool auditedOnly = question.auditedOnly;
  return {range(question, {}, after, until) + BuildBillFilter({.auditedOnly = auditedOnly, .moneyName = question.moneyName}),
          range(question, "TabSustainInf.", after, until) +
              BuildBillFilter({.table = "TabSustainInf", .auditedOnly = auditedOnly, .moneyName = question.moneyName}),
          range(question, "TabWarrant.", after, until) + BuildBillFilter({.table = "TabWarrant", .auditedOnly = auditedOnly}) +
              BuildBillFilter({.table = "TabWarrantInf", .moneyName = question.moneyName})};
}

void appendSelectList(QString& sql, const Arm& arm, QStringView rate)
{
  sql += u"select ";
  for (std::size_t i = 0; i < Sums.size(); ++i) {
    if (i > 0)
      sql += u", ";
    if (arm.amounts[i])
      sql.append(u" sum(").append(QStringView(arm.amounts[i])).append(rate).append(u')');
    else
      sql += u'0';
    sql.append(u" as ").append(QStringView(Sums[i]));
  }
}

// The values are put in all at once: whatever a partner's code holds stays a value.
QString goodsBills(const MovementQuestion& question, const Scopes& scopes, const Arm& arm)
{
  return QStringLiteral(" from %1  where UnitCode='%2' and State='正常'    and  %3").arg(QStringView(arm.of), question.code, scopes.bills);
}

QString fundLines(const MovementQuestion& question, const Scopes& scopes, const Arm& arm)
{
  return QStringLiteral(" from %1  where UnitCode='%2'  and AccountantCode like '%3%'   and  %4  and  State='正常'")
      .arg(QStringView(arm.of), question.code, QStringView(arm.accounts), scopes.bills);
}

QString offsetLines(const MovementQuestion& question, const Scopes& scopes, const Arm& arm)
{
  return QStringLiteral(" from TabSustainInf,TabSustain  where TabSustainInf.UnitCode='%1'   and  %2"
                        "  and  TabSustainInf.State='正常'  and  TabSustain.SustainType='%3'"
                        "  and  TabSustain.Code=TabSustainInf.Code")
      .arg(question.code, scopes.offsets, QStringView(arm.of));
}

// Vouchers made by hand: those of bills would count a movement twice.
QString vouchers(Session& session, const MovementQuestion& question, const Scopes& scopes, const Arm& arm)
{
  const QString kind = QString::fromUtf16(arm.of);
  const bool keptByPartners = IsClientAccountWLHS(session, question.code, kind);
  return QStringLiteral(" from  TabWarrant,TabWarrantInf ,TabAccountantType,TabClient "
                        " where (TabWarrant.JXCBillCode='' or %1)   and %2"
                        " and  TabAccountantType.Code =TabClient.%3   and TabClient.Code=  '%4' %5"
                        " and TabWarrant.Code=TabWarrantInf.BillCode "
                        " and TabWarrantInf.AccountantCode=TabAccountantType.Code "
                        " and TabWarrant.AccountBook%6=1  ")
      .arg(SqlDialect::isNull(session, "TabWarrant.JXCBillCode"), scopes.vouchers, partnerAccountColumn(kind), question.code,
           keptByPartners ? QString(" and TabWarrantInf.WLHS=  '" + question.code + "' ") : QString(), question.book);
}

QString fromWhere(Session& session, const MovementQuestion& question, const Scopes& scopes, const Arm& arm)
{
  switch (arm.source) {
  case Source::GoodsBills: return goodsBills(question, scopes, arm);
  case Source::FundLines: return fundLines(question, scopes, arm);
  case Source::OffsetLines: return offsetLines(question, scopes, arm);
  case Source::Vouchers: return vouchers(session, question, scopes, arm);
  }
  return {};
}

QStringView rateOf(const MovementQuestion& question, const Arm& arm)
{
  if (!isAllCurrencies(question.moneyName))
    return {};
  return arm.source == Source::OffsetLines ? QStringView(u"*TabSustainInf.MoneyRate") : QStringView(u"*MoneyRate");
}

// In inventory kept apart from finance, vouchers are none of the partner's bills.
bool takesPart(const Session& session, const MovementQuestion& question, const Arm& arm)
{
  return arm.source != Source::Vouchers || (!question.code.isEmpty() && !session.params.IsJXC);
}

} // namespace

QString movementStatement(Session& session, const MovementQuestion& question)
{
  const Scopes scopes = scopesOf(session, question);
  QString sql = QStringLiteral("select sum(SumMoneyy) as SumMoneyy,  sum(SumCashh) as SumCashh,  sum(SumCreditt) as SumCreditt,  "
                               " sum(SumMoneyy_G) as SumMoneyy_G,  sum(SumCashh_G) as SumCashh_G,  sum(SumCreditt_G) as SumCreditt_G   "
                               " from ( ");
  bool isFirst = true;
  for (const Arm& arm : Arms) {
    if (!takesPart(session, question, arm))
      continue;
    if (!isFirst)
      sql += u" union all  ";
    isFirst = false;
    appendSelectList(sql, arm, rateOf(question, arm));
    sql += fromWhere(session, question, scopes, arm);
  }
  return sql += u" ) tmpTab ";
}

QString partnerAccountColumn(const QString& kind)
{
  static constexpr struct {
    const char16_t* kind;
    const char* column;
  } Columns[] = {{u"应收", "YingShouCode"}, {u"预收", "YuShouCode"}, {u"应付", "YingFuCode"}, {u"预付", "YuFuCode"}};
  for (const auto& known : Columns)
    if (kind == QStringView(known.kind))
      return known.column;
  return {};
}

} // namespace ModFuntion
