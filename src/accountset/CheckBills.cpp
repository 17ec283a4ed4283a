#include "accountset/CheckQueries.h"

#include "ledger/BillKinds.h"

namespace Check {
namespace {

// The program writes a header before its lines: where they differ in what an audit or a void writes to both, a death came
// between, and the header is right.
constexpr Rule Rules[] = {
    {u"@header: 单据金额与明细合计不符（单号、单据金额、明细合计）", uR"(select h.Code, h.SumMoney, l.Total
        from @header h, (select @link as Bill, sum(Moneyy) as Total from @lines group by @link) l
        where l.Bill=h.Code and coalesce(h.SumMoney,0)<>coalesce(l.Total,0)
        order by h.Code)",
     u"打开单据，补全或改正明细后保存"},
    {u"@header: 单据状态与明细状态不符（单号、单据状态、明细状态）",
     uR"(select distinct h.Code, h.State, l.State as LineState
        from @header h, @lines l
        where l.@link=h.Code and coalesce(h.State,'')<>coalesce(l.State,'')
        order by h.Code)",
     u"打开单据，核对后保存",
     {uR"(update @lines as l set State='作废'
        where coalesce(l.State,'')<>'作废' and exists (select 1 from @header h where h.Code=l.@link and h.State='作废'))"}},
    {u"@header: 单据审核人与明细审核人不符（单号、单据审核人、明细审核人）",
     uR"(select distinct h.Code, h.Auditing, l.Auditing as LineAuditing
        from @header h, @lines l
        where l.@link=h.Code and coalesce(h.Auditing,'')<>coalesce(l.Auditing,'')
        order by h.Code)",
     u"反审核后重新审核",
     {uR"(update @lines as l set Auditing=(select h.Auditing from @header h where h.Code=l.@link)
        where exists (select 1 from @header h where h.Code=l.@link and coalesce(h.Auditing,'')<>coalesce(l.Auditing,'')))"}},
    // Dates are compared by the day; after "coalesce" a file would compare them as texts.
    {u"@header: 单据日期与明细日期不符（单号、单据日期、明细日期）", uR"(select distinct h.Code, h.Datee, l.Datee as LineDatee
        from @header h, @lines l
        where l.@link=h.Code and (h.Datee<>l.Datee or (h.Datee is null)<>(l.Datee is null))
        order by h.Code)",
     u"打开单据，核对日期后保存"},
    {u"@header: 单据没有明细", uR"(select h.Code
        from @header h
        where not exists (select 1 from @lines l where l.@link=h.Code)
        order by h.Code)",
     u"打开单据，补录明细后保存"},
    {u"@header: 明细没有单据", uR"(select distinct l.@link as Bill
        from @lines l
        where not exists (select 1 from @header h where h.Code=l.@link)
        order by 1)",
     u"重新录入该单据；如编号不同，由管理员删除这些明细"},
};

constexpr Rule PartnerRule = {u"@header: 单据单位与明细单位不符（单号、单据单位、明细单位）",
                              uR"(select distinct h.Code, h.UnitCode, l.UnitCode as LineUnitCode
        from @header h, @lines l
        where l.@link=h.Code and coalesce(h.UnitCode,'')<>coalesce(l.UnitCode,'')
        order by h.Code)",
                              u"打开单据，核对单位后保存"};

Query queryOf(const Rule& rule, const BillKind& kind)
{
  return queryOf(rule, {{"@header", QLatin1String(kind.headerTable)},
                        {"@lines", QLatin1String(kind.lines->table)},
                        {"@link", QLatin1String(kind.lines->billCode)}});
}

} // namespace

QList<Query> billQueries()
{
  QList<Query> queries;
  for (const BillKind* const kind : BillKinds::All) {
    if (!kind->lines)
      continue;
    for (const Rule& rule : Rules)
      queries.append(queryOf(rule, *kind));
    if (kind->hasPartner)
      queries.append(queryOf(PartnerRule, *kind));
  }
  return queries;
}

} // namespace Check
