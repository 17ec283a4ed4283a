#include "accountset/CheckQueries.h"

#include "ledger/BillKinds.h"
#include "platform/DateText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Check {
namespace {

constexpr Rule Rules[] = {
    {u"凭证借贷不平（凭证号、借方、贷方）", uR"(select l.BillCode, l.D, l.L
        from (select BillCode, sum(Debtor) as D, sum(Lender) as L from TabWarrantInf group by BillCode) l
        where coalesce(l.D,0)<>coalesce(l.L,0)
        order by l.BillCode)",
     u"打开凭证的单据并保存，以重新生成凭证"},
    {u"凭证合计与分录不符（凭证号、凭证借方、分录借方、凭证贷方、分录贷方）", uR"(select h.Code, h.SumDebtor, l.D, h.SumLender, l.L
        from TabWarrant h, (select BillCode, sum(Debtor) as D, sum(Lender) as L from TabWarrantInf group by BillCode) l
        where l.BillCode=h.Code
          and (coalesce(h.SumDebtor,0)<>coalesce(l.D,0) or coalesce(h.SumLender,0)<>coalesce(l.L,0))
        order by h.Code)",
     u"打开凭证的单据并保存，以重新生成凭证"},
    {u"凭证没有分录", uR"(select h.Code
        from TabWarrant h
        where not exists (select 1 from TabWarrantInf l where l.BillCode=h.Code)
        order by h.Code)",
     u"打开凭证的单据并保存，以重新生成凭证"},
    {u"分录没有凭证",
     uR"(select distinct l.BillCode
        from TabWarrantInf l
        where not exists (select 1 from TabWarrant h where h.Code=l.BillCode)
        order by l.BillCode)",
     u"由管理员删除这些分录",
     {uR"(delete from TabWarrantInf where not exists (select 1 from TabWarrant h where h.Code=TabWarrantInf.BillCode))"}},
    {u"凭证的单据已不存在（凭证号、单号）", uR"(select h.Code, h.JXCBillCode
        from TabWarrant h
        where coalesce(h.JXCBillCode,'')<>'' and not @isMoneyBill and not @isGoodsBill
        order by h.Code)",
     u"核对后由管理员删除该凭证"},
};

// A book's numbers are counted over the accounting period with the number of the bill's calendar month. Vouchers
// dated after the end of that period are numbered out of order, and are left out.
constexpr Rule NumberRule = {u"账簿@n 的凭证号重复（会计年、会计月、凭证号、两张凭证）",
                             uR"(select DateeY, DateeM, WarrantNum@n as Num, min(Code) as FirstCode, max(Code) as LastCode
        from TabWarrant
        where AccountBook@n=1 and WarrantNum@n>0
          and (Datee like DateeY||'-'||DateeM||'-%' or Datee like DateeY||'-0'||DateeM||'-%')
        group by DateeY, DateeM, WarrantNum@n
        having count(*)>1
        order by 1, 2, 3)",
                             u"在凭证管理中重新编号"};

// A voided bill keeps its mark and loses its voucher; a bill with a total of 0 is marked without one.
constexpr Rule KindRules[] = {
    {u"@kind: 单据标明已生成会计凭证，但没有凭证（单号、单据金额）", uR"(select h.Code, h.SumMoney
        from @header h
        where h.Report='已生成会计凭证' and coalesce(h.State,'')<>'作废' and coalesce(h.SumMoney,0)<>0 @only
          and not exists (select 1 from TabWarrant w where w.JXCBillCode=h.Code)
        order by h.Code)",
     u"打开单据并保存，以生成凭证"},
    // A session that keeps inventory and finance apart writes no vouchers, and neither does a kind whose
    // vouchers are turned off. So a bill is expected to have one if an earlier bill of its kind has one.
    {u"@kind: 单据没有凭证，也没有标明已生成会计凭证（单号、单据金额）", uR"(select h.Code, h.SumMoney
        from @header h
        where coalesce(h.Report,'')<>'已生成会计凭证' and coalesce(h.State,'')<>'作废' and coalesce(h.SumMoney,0)<>0 @only
          and h.Datee>#@closed#
          and not exists (select 1 from TabWarrant w where w.JXCBillCode=h.Code)
          and not exists (select 1 from TabJXCAccount s where s.JXCTabName='@kind' and s.IsWarrant=0)
          and exists (select 1 from @header e, TabWarrant w where e.Code<h.Code and w.JXCBillCode=e.Code @sameKind)
        order by h.Code)",
     u"打开单据并保存，以生成凭证"},
    {u"@kind: 单据有凭证，但没有标明已生成会计凭证（单号、凭证号）",
     uR"(select h.Code, w.Code as Voucher
        from @header h, TabWarrant w
        where w.JXCBillCode=h.Code and coalesce(h.Report,'')<>'已生成会计凭证' and coalesce(h.State,'')<>'作废' @only
          and h.Datee>#@closed#
        order by h.Code)",
     u"打开单据并保存",
     {uR"(update @header as h set Report='已生成会计凭证'
        where coalesce(h.Report,'')<>'已生成会计凭证' and coalesce(h.State,'')<>'作废' @only and h.Datee>#@closed#
          and exists (select 1 from TabWarrant w where w.JXCBillCode=h.Code))"}},
    {u"@kind: 作废单据仍有凭证（单号、凭证号）",
     uR"(select h.Code, w.Code as Voucher
        from @header h, TabWarrant w
        where w.JXCBillCode=h.Code and h.State='作废' @only
        order by h.Code)",
     u"凭证已登账：反登账后再次更正",
     {uR"(delete from TabWarrantInf where BillCode in (select w.Code from @header h, TabWarrant w
          where w.JXCBillCode=h.Code and h.State='作废' and coalesce(w.State,'')<>'已登账' @only))",
      uR"(delete from TabWarrant
        where coalesce(State,'')<>'已登账' and JXCBillCode in (select h.Code from @header h where h.State='作废' @only))"}},
    {u"@kind: 凭证金额与单据金额不符（单号、单据金额、凭证号、凭证金额）", uR"(select h.Code, h.SumMoney, w.Code as Voucher, w.SumDebtor
        from @header h, TabWarrant w
        where w.JXCBillCode=h.Code and coalesce(h.SumMoney,0)<>coalesce(w.SumDebtor,0) @only
        order by h.Code)",
     u"打开单据并保存，以重新生成凭证"},
    {u"@kind: 凭证分录属于另一张单据（单号、凭证号、分录摘要）", uR"(select distinct h.Code, w.Code as Voucher, l.Summary
        from @header h, TabWarrant w, TabWarrantInf l
        where w.JXCBillCode=h.Code and l.BillCode=w.Code @only
          and l.Summary like '第%号%单' and not l.Summary like '第'||h.Code||'号%单'
        order by h.Code)",
     u"打开单据并保存，以重新生成凭证"},
};

// The rules of a kind of bill; of a fee offset, in one of its modes.
void appendRules(QList<Query>& queries, const BillKind& kind, const OffsetMode* mode, const QString& closed)
{
  const QString type = mode ? QString::fromUtf16(mode->type) : QString();
  for (const Rule& rule : KindRules)
    queries.append(queryOf(rule, {{"@header", QLatin1String(kind.headerTable)},
                                  {"@kind", QString::fromUtf16(mode ? mode->name : kind.name)},
                                  {"@only", mode ? u"and h.SustainType='"_s + type + u'\'' : QString()},
                                  {"@sameKind", mode ? u"and e.SustainType=h.SustainType"_s : QString()},
                                  {"@closed", closed}}));
}

} // namespace

QList<Query> voucherQueries(const QString& closed)
{
  QList<Query> queries;
  for (const Rule& rule : Rules)
    queries.append(queryOf(rule, {{"@isMoneyBill", isBillOf(headerTables([](const BillKind&) { return true; }), u"h.JXCBillCode"_s)},
                                  {"@isGoodsBill", isBillOf(GoodsBills, u"h.JXCBillCode"_s)}}));
  for (const QString& book : {u"1"_s, u"2"_s, u"3"_s})
    queries.append(queryOf(NumberRule, {{"@n", book}}));
  for (const BillKind* const kind : BillKinds::All)
    if (kind != &BillKinds::FeeOffset)
      appendRules(queries, *kind, nullptr, closed);
  for (const OffsetMode* const mode : {&BillKinds::CustomerOffset, &BillKinds::SupplierOffset})
    appendRules(queries, BillKinds::FeeOffset, mode, closed);
  return queries;
}

DatabaseResult<QString> lastClosedDay(Engine& engine)
{
  const auto closed = engine.execute(u"select DateeY, DateeM from TabWriteAccountant where State='已结账'"_s);
  const auto ends = engine.execute(u"select DateeM, DateeD from TabAccountAreaSet"_s);
  for (const auto* const read : {&ends, &closed})
    if (!*read)
      return tl::unexpected(read->error());
  QDate last(1900, 1, 1);
  for (qint64 row = 0; row < closed->rows(); ++row) {
    const QDate month(closed->value(row, 0).toText().toInt(), closed->value(row, 1).toText().toInt(), 1);
    QDate end = month.isValid() ? month.addMonths(1).addDays(-1) : last;
    for (qint64 i = 0; i < ends->rows(); ++i)
      if (ends->value(i, 0).toInteger() == month.month())
        end.setDate(month.year(), month.month(), int(ends->value(i, 1).toInteger()));
    last = std::max(last, end);
  }
  return DateText::shortForm(last);
}

} // namespace Check
