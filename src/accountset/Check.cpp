#include "accountset/Check.h"

#include "database/EmbeddedEngine.h"
#include "database/ServerEngine.h"

namespace Check {
namespace {

// A money bill: its header table, its line table, the line's column for the bill, and the name that its
// vouchers are kept under.
struct MoneyBill {
  const char* header;
  const char* lines;
  const char* link;
};
constexpr MoneyBill MoneyBills[] = {
    {"TabPayfundBill", "TabPayfundBillInf", "BillCode"},
    {"TabGathefundBill", "TabGathefundBillInf", "BillCode"},
    {"TabFee", "TabFeeInf", "Code"},
    {"TabElseIncome", "TabElseIncomeInf", "Code"},
    {"TabSustain", "TabSustainInf", "Code"},
};

// Every header table whose bills can be settled, or can have a voucher.
constexpr const char* GoodsBills[] = {"TabInBill", "TabInCancleBill", "TabOutBill", "TabOutCancleBill", "TabElseInBill", "TabElseOutBill"};
constexpr const char* SettlingBills[] = {"TabPayfundBill", "TabGathefundBill", "TabSustain"};
constexpr const char* VoucherBills[] = {"TabPayfundBill", "TabGathefundBill", "TabKeepTake", "TabFee", "TabElseIncome", "TabSustain"};

// Amounts of the file are binary numbers, and their sums differ from the sum by less than this.
constexpr char Differ[] = ">0.00001";

struct Question {
  QString what;
  QString sql;
};

// The header that `code` names, in whichever of these tables.
template <std::size_t N> QString standsIn(const char* const (&tables)[N], const QString& code)
{
  QStringList arms;
  for (const char* table : tables)
    arms.append(QStringLiteral("exists (select 1 from %1 b where b.Code=%2)").arg(QLatin1String(table), code));
  return u'(' + arms.join(QStringLiteral(" or ")) + u')';
}

QList<Question> questionsOf(const MoneyBill& bill)
{
  const auto fill = [&bill](const char* sql) {
    return QString::fromLatin1(sql)
        .replace(QStringLiteral("@header"), QLatin1String(bill.header))
        .replace(QStringLiteral("@lines"), QLatin1String(bill.lines))
        .replace(QStringLiteral("@link"), QLatin1String(bill.link))
        .replace(QStringLiteral("@differ"), QLatin1String(Differ));
  };
  const auto named = [&bill](const char* text) { return QString::fromUtf8(text).arg(QLatin1String(bill.header)); };
  return {
      {named("%1: 单据金额与明细合计不符（单号、单据金额、明细合计）"),
       fill("select h.Code, h.SumMoney, l.Total from @header h, (select @link as Bill, sum(Moneyy) as Total from @lines group by @link) l "
            "where l.Bill=h.Code and abs(coalesce(h.SumMoney,0)-coalesce(l.Total,0))@differ order by h.Code")},
      {named("%1: 单据状态与明细状态不符（单号、单据状态、明细状态）"),
       fill("select distinct h.Code, h.State, l.State as LineState from @header h, @lines l where l.@link=h.Code "
            "and coalesce(h.State,'')<>coalesce(l.State,'') order by h.Code")},
      {named("%1: 单据没有明细"),
       fill("select h.Code from @header h where not exists (select 1 from @lines l where l.@link=h.Code) order by h.Code")},
      {named("%1: 明细没有单据"),
       fill("select distinct l.@link as Bill from @lines l where not exists (select 1 from @header h where h.Code=l.@link) order by 1")},
  };
}

QList<Question> voucherQuestions()
{
  const QString lines = QStringLiteral("(select BillCode, sum(Debtor) as D, sum(Lender) as L from TabWarrantInf group by BillCode) l");
  return {
      {QStringLiteral("凭证借贷不平（凭证号、借方、贷方）"),
       QStringLiteral("select l.BillCode, l.D, l.L from %1 where abs(coalesce(l.D,0)-coalesce(l.L,0))%2 order by l.BillCode")
           .arg(lines, QLatin1String(Differ))},
      {QStringLiteral("凭证合计与分录不符（凭证号、凭证借方、分录借方、凭证贷方、分录贷方）"),
       QStringLiteral("select h.Code, h.SumDebtor, l.D, h.SumLender, l.L from TabWarrant h, %1 where l.BillCode=h.Code and "
                      "(abs(coalesce(h.SumDebtor,0)-coalesce(l.D,0))%2 or abs(coalesce(h.SumLender,0)-coalesce(l.L,0))%2) order by h.Code")
           .arg(lines, QLatin1String(Differ))},
      {QStringLiteral("凭证没有分录"),
       QStringLiteral(
           "select h.Code from TabWarrant h where not exists (select 1 from TabWarrantInf l where l.BillCode=h.Code) order by h.Code")},
      {QStringLiteral("分录没有凭证"),
       QStringLiteral("select distinct l.BillCode from TabWarrantInf l where not exists (select 1 from TabWarrant h where "
                      "h.Code=l.BillCode) order by l.BillCode")},
      {QStringLiteral("凭证的单据已不存在（凭证号、单号）"),
       QStringLiteral("select h.Code, h.JXCBillCode from TabWarrant h where coalesce(h.JXCBillCode,'')<>'' and not %1 and not %2 "
                      "order by h.Code")
           .arg(standsIn(VoucherBills, QStringLiteral("h.JXCBillCode")), standsIn(GoodsBills, QStringLiteral("h.JXCBillCode")))},
  };
}

QList<Question> settlementQuestions()
{
  const auto orphans = [](const QString& column, const QString& stands) {
    return QStringLiteral("select x.InOutBillCode, x.SFKBillCode, x.HXMoney from TabSFKHeXiao x where not %1 "
                          "order by x.InOutBillCode, x.SFKBillCode, x.%2")
        .arg(stands, column);
  };
  QList<Question> questions = {{QStringLiteral("核销记录的业务单据已不存在（业务单号、收付款单号、核销金额）"),
                                orphans(QStringLiteral("InOutBillCode"), standsIn(GoodsBills, QStringLiteral("x.InOutBillCode")))},
                               {QStringLiteral("核销记录的收付款单已不存在（业务单号、收付款单号、核销金额）"),
                                orphans(QStringLiteral("SFKBillCode"), standsIn(SettlingBills, QStringLiteral("x.SFKBillCode")))}};
  for (const char* table : GoodsBills)
    questions.append({QString::fromUtf8("%1: 已核销金额与核销记录合计不符（单号、已核销金额、核销记录合计）").arg(QLatin1String(table)),
                      QStringLiteral("select h.Code, h.HXMoney, coalesce(x.Total,0) as Total from %1 h left join (select InOutBillCode, "
                                     "sum(HXMoney) as Total from TabSFKHeXiao group by InOutBillCode) x on x.InOutBillCode=h.Code "
                                     "where abs(coalesce(h.HXMoney,0)-coalesce(x.Total,0))%2 order by h.Code")
                          .arg(QLatin1String(table), QLatin1String(Differ))});
  return questions;
}

QStringList linesOf(const RowSet& rows)
{
  QStringList lines;
  for (qint64 row = 0; row < rows.rows(); ++row) {
    QStringList values;
    for (int i = 0; i < rows.names().size(); ++i)
      values.append(rows.value(row, i).toText());
    lines.append(values.join(QStringLiteral(" | ")));
  }
  return lines;
}

template <typename Opening> std::unique_ptr<Engine> take(Opening opening, QString& reason)
{
  if (!opening.engine)
    reason = opening.error.description;
  return std::move(opening.engine);
}

} // namespace

QList<Finding> run(const Place& place, QString& reason)
{
  const auto engine = place.isServer() ? take(ServerEngine::open(place.server), reason) : take(EmbeddedEngine::open(place.file), reason);
  if (!engine)
    return {};
  QList<Question> questions;
  for (const MoneyBill& bill : MoneyBills)
    questions += questionsOf(bill);
  questions += voucherQuestions() + settlementQuestions();
  QList<Finding> findings;
  for (const Question& question : questions) {
    const StatementResult result = engine->execute(question.sql);
    if (result.error) {
      reason = result.error->description;
      return findings;
    }
    if (result.rows.rows() > 0)
      findings.append({question.what, linesOf(result.rows)});
  }
  return findings;
}

} // namespace Check
