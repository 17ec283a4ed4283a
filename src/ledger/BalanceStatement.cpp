#include "ledger/BalanceStatement.h"

#include "ledger/Balance.h"
#include "ledger/BillFilter.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <QStringList>

#include <array>

namespace ModFuntion {
namespace {

constexpr std::array Sums = {"SumMoneyy", "SumCashh", "SumCreditt", "SumMoneyy_G", "SumCashh_G", "SumCreditt_G"};
using Amounts = std::array<const char*, Sums.size()>;

enum class Source { GoodsBills, FundLines, OffsetLines, Vouchers };

// One place where a partner's movements stand, and which sums they move. What moves nothing is null.
struct Arm {
  Source source;
  const char* of;       // the table; of offsets their SustainType; of vouchers the kind of account
  const char* accounts; // of fund lines: how the account's code begins
  Amounts amounts;
};

// Cash accounts begin with 1001, bank accounts with 1002; money on any other account leaves the
// balance as it is.
constexpr Arm Arms[] = {
    {Source::GoodsBills, "TabOutBill", "", {"(SumMoney-AllDiscount)", "Cash", "Credit"}},
    {Source::GoodsBills, "TabOutCancleBill", "", {"-(SumMoney-AllDiscount)", "-Cash", "-Credit"}},
    {Source::FundLines, "TabGathefundBillInf", "1001", {nullptr, "Moneyy"}},
    {Source::FundLines, "TabGathefundBillInf", "1002", {nullptr, nullptr, "Moneyy"}},
    {Source::OffsetLines, "客户", "", {nullptr, nullptr, "TabSustainInf.Moneyy"}},
    {Source::Vouchers, "应收", "", {"(Debtor-Lender)"}},
    {Source::Vouchers, "预收", "", {"(Debtor-Lender)"}},
    {Source::GoodsBills, "TabInBill", "", {nullptr, nullptr, nullptr, "(SumMoney-AllDiscount)", "Cash", "Credit"}},
    {Source::GoodsBills, "TabInCancleBill", "", {nullptr, nullptr, nullptr, "-(SumMoney-AllDiscount)", "-Cash", "-Credit"}},
    {Source::FundLines, "TabPayfundBillInf", "1001", {nullptr, nullptr, nullptr, nullptr, "Moneyy"}},
    {Source::FundLines, "TabPayfundBillInf", "1002", {nullptr, nullptr, nullptr, nullptr, nullptr, "Moneyy"}},
    {Source::OffsetLines, "供应商", "", {nullptr, nullptr, nullptr, nullptr, nullptr, "TabSustainInf.Moneyy"}},
    {Source::Vouchers, "预付", "", {nullptr, nullptr, nullptr, "(Lender-Debtor)"}},
    {Source::Vouchers, "应付", "", {nullptr, nullptr, nullptr, "(Lender-Debtor)"}},
};

// The days of the movements. A closing on the day asked for has taken all of it in: nothing is left.
QString range(const Session& session, const MovementQuestion& question, const QString& prefix)
{
  const QString until = question.lastClosing == question.date ? "Datee<" : "Datee<=";
  return "    " + prefix + "Datee>" + SqlDialect::date(session, question.lastClosing) + " and " + prefix + until +
         SqlDialect::date(session, question.date);
}

QString selectList(const Arm& arm, const QString& rateColumn)
{
  QStringList columns;
  for (std::size_t i = 0; i < Sums.size(); ++i) {
    const QString name = QString(" as ") + Sums[i];
    columns += arm.amounts[i] ? QString(" sum(") + arm.amounts[i] + rateColumn + ")" + name : "0" + name;
  }
  return "select " + columns.join(", ");
}

QString goodsBills(const Session& session, const MovementQuestion& question, const Arm& arm)
{
  return QString(" from ") + arm.of + "  where UnitCode='" + question.code + "' and State='正常'  " + "  and  " +
         range(session, question, {}) + BuildBillFilter({.auditedOnly = question.auditedOnly, .moneyName = question.moneyName});
}

QString fundLines(const Session& session, const MovementQuestion& question, const Arm& arm)
{
  return QString(" from ") + arm.of + "  where UnitCode='" + question.code + "' " + " and AccountantCode like '" + arm.accounts + "%' " +
         "  and  " + range(session, question, {}) +
         BuildBillFilter({.auditedOnly = question.auditedOnly, .moneyName = question.moneyName}) + "  and  State='正常'";
}

QString offsetLines(const Session& session, const MovementQuestion& question, const Arm& arm)
{
  return " from TabSustainInf,TabSustain  where TabSustainInf.UnitCode='" + question.code + "' " + "  and  " +
         range(session, question, "TabSustainInf.") +
         BuildBillFilter({.table = "TabSustainInf", .auditedOnly = question.auditedOnly, .moneyName = question.moneyName}) +
         "  and  TabSustainInf.State='正常'" + "  and  TabSustain.SustainType='" + arm.of + "'" +
         "  and  TabSustain.Code=TabSustainInf.Code";
}

// Vouchers made by hand: those of bills would count a movement twice.
QString vouchers(Session& session, const MovementQuestion& question, const Arm& arm)
{
  const QString isNobodysVoucher = " where (TabWarrant.JXCBillCode='' or " + SqlDialect::isNull(session, "TabWarrant.JXCBillCode") + ")  ";
  const bool keptByPartners = IsClientAccountWLHS(session, question.code, arm.of);
  return QString(" from  TabWarrant,TabWarrantInf ,TabAccountantType,TabClient ") + isNobodysVoucher + " and " +
         range(session, question, "TabWarrant.") + BuildBillFilter({.table = "TabWarrant", .auditedOnly = question.auditedOnly}) +
         BuildBillFilter({.table = "TabWarrantInf", .moneyName = question.moneyName}) + " and  TabAccountantType.Code =TabClient." +
         partnerAccountColumn(arm.of) + "  " + " and TabClient.Code=  '" + question.code + "' " +
         (keptByPartners ? " and TabWarrantInf.WLHS=  '" + question.code + "' " : QString()) +
         " and TabWarrant.Code=TabWarrantInf.BillCode " + " and TabWarrantInf.AccountantCode=TabAccountantType.Code " +
         " and TabWarrant.AccountBook" + question.book + "=1  ";
}

QString fromWhere(Session& session, const MovementQuestion& question, const Arm& arm)
{
  switch (arm.source) {
  case Source::GoodsBills: return goodsBills(session, question, arm);
  case Source::FundLines: return fundLines(session, question, arm);
  case Source::OffsetLines: return offsetLines(session, question, arm);
  case Source::Vouchers: return vouchers(session, question, arm);
  }
  return {};
}

QString rateColumn(const MovementQuestion& question, const Arm& arm)
{
  if (!isAllCurrencies(question.moneyName))
    return {};
  return arm.source == Source::OffsetLines ? "*TabSustainInf.MoneyRate" : "*MoneyRate";
}

// In inventory kept apart from finance, vouchers are none of the partner's bills.
bool takesPart(const Session& session, const MovementQuestion& question, const Arm& arm)
{
  return arm.source != Source::Vouchers || (!question.code.isEmpty() && !session.params.IsJXC);
}

} // namespace

QString movementStatement(Session& session, const MovementQuestion& question)
{
  QStringList arms;
  for (const Arm& arm : Arms)
    if (takesPart(session, question, arm))
      arms += selectList(arm, rateColumn(question, arm)) + fromWhere(session, question, arm);
  return QString("select sum(SumMoneyy) as SumMoneyy, ") + " sum(SumCashh) as SumCashh, " + " sum(SumCreditt) as SumCreditt,  " +
         " sum(SumMoneyy_G) as SumMoneyy_G, " + " sum(SumCashh_G) as SumCashh_G, " + " sum(SumCreditt_G) as SumCreditt_G   " + " from ( " +
         arms.join(" union all  ") + " ) tmpTab ";
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
