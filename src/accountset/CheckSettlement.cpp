#include "accountset/CheckQueries.h"

#include "ledger/BillKinds.h"

using namespace Qt::StringLiterals;

namespace Check {
namespace {

constexpr Rule OrphanRules[] = {
    {u"核销记录的业务单据已不存在（业务单号、收付款单号、核销金额）", uR"(select x.InOutBillCode, x.SFKBillCode, x.HXMoney
        from TabSFKHeXiao x
        where not @isGoodsBill
        order by x.InOutBillCode, x.SFKBillCode)",
     u"打开该收付款单的核销，重新分配"},
    {u"核销记录的收付款单已不存在（业务单号、收付款单号、核销金额）", uR"(select x.InOutBillCode, x.SFKBillCode, x.HXMoney
        from TabSFKHeXiao x
        where not @isSettlingBill
        order by x.InOutBillCode, x.SFKBillCode)",
     u"重新录入该收付款单；如编号不同，由管理员删除这些核销记录"},
};

// The write-off works in single precision and writes amounts with seven digits: they are exact to the cent
// up to 100,000, and beyond it to a millionth.
constexpr QStringView Slack = u"(case when abs(@amount)<100000 then 0.005 else abs(@amount)*0.000001 end)";

constexpr Rule GoodsRule = {u"@header: 已核销金额与核销记录合计不符（单号、已核销金额、核销记录合计）",
                            uR"(select h.Code, h.HXMoney, coalesce(x.Total,0) as Total
        from @header h left join (select InOutBillCode, sum(HXMoney) as Total from TabSFKHeXiao group by InOutBillCode) x
          on x.InOutBillCode=h.Code
        where abs(coalesce(h.HXMoney,0)-coalesce(x.Total,0))>@slack
        order by h.Code)",
                            u"打开该单位任一收付款单的核销，清空核销状态后查询，在该业务单据的行输入 0"};

constexpr Rule DueRule = {u"@header: 核销超过应核销金额（单号、应核销金额、核销记录合计）",
                          uR"(select h.Code, h.SumMoney-h.Cash-h.Credit as Due, x.Total
        from @header h, (select InOutBillCode, sum(HXMoney) as Total from TabSFKHeXiao group by InOutBillCode) x
        where x.InOutBillCode=h.Code and x.Total-(h.SumMoney-h.Cash-h.Credit)>@slack
        order by h.Code)",
                          u"打开收付款单的核销，减少该业务单据的核销金额"};

// A write-off allocates the whole bill or nothing of it.
constexpr Rule AllocationRule = {u"@header: 核销记录合计与收付款金额不符（单号、单据金额、核销记录合计）",
                                 uR"(select h.Code, h.SumMoney, x.Total
        from @header h, (select SFKBillCode, sum(HXMoney) as Total from TabSFKHeXiao group by SFKBillCode) x
        where x.SFKBillCode=h.Code and abs(x.Total-coalesce(h.SumMoney,0))>@slack
        order by h.Code)",
                                 u"打开该收付款单的核销，各行输入 0 后重新分配"};

Query queryOf(const Rule& rule, const QString& header, const QString& amount)
{
  return queryOf(rule, {{"@header", header}, {"@slack", filled(Slack, {{"@amount", amount}})}});
}

} // namespace

QList<Query> settlementQueries()
{
  QList<Query> queries;
  for (const Rule& rule : OrphanRules)
    queries.append(queryOf(
        rule, {{"@isGoodsBill", isBillOf(GoodsBills, u"x.InOutBillCode"_s)},
               {"@isSettlingBill", isBillOf(headerTables([](const BillKind& kind) { return kind.hasPartner; }), u"x.SFKBillCode"_s)}}));
  for (const QString& header : GoodsBills)
    queries.append(queryOf(GoodsRule, header, u"coalesce(x.Total,0)"_s));
  for (const BillKind* const kind : {&BillKinds::Payment, &BillKinds::Receipt})
    queries.append(queryOf(DueRule, QLatin1String(kind->writeOff->goodsTable), u"h.SumMoney"_s));
  for (const BillKind* const kind : {&BillKinds::Payment, &BillKinds::Receipt})
    queries.append(queryOf(AllocationRule, QLatin1String(kind->headerTable), u"x.Total"_s));
  return queries;
}

} // namespace Check
