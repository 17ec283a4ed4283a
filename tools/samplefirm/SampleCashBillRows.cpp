#include "samplefirm/SampleCashBills.h"

#include "billstore/BillRows.h"
#include "platform/DateText.h"
#include "samplefirm/RowWriter.h"
#include "samplefirm/SampleCalendar.h"
#include "samplefirm/SampleChart.h"
#include "samplefirm/SamplePartners.h"

using namespace Qt::StringLiterals;

// The rows of the money documents, as the screens write them.
namespace SampleFirm {
namespace {

BillAccount accountOf(const AccountAmount& part)
{
  return part.account.isEmpty() ? BillAccount() : BillAccount{part.account.toString(), account(part.account).name.toString()};
}

BillRecord recordOf(const CashBill& bill)
{
  BillRecord record{.code = bill.code,
                    .date = bill.day,
                    .operatorName = u"李出纳"_s,
                    .saleMan = bill.partner ? bill.partner->salesman.toString() : QString(),
                    .remark = bill.remark.toString(),
                    .type = bill.kind->billType.toString(),
                    .currency = u"人民币"_s,
                    .auditor = isAudited(bill.day) ? u"张会计"_s : QString(),
                    .state = bill.isVoided ? u"作废"_s : u"正常"_s,
                    .report = bill.isVoided ? QString() : u"已生成会计凭证"_s,
                    .sum = bill.sum()};
  if (bill.partner)
    record.partner = {bill.partner->code.toString(), bill.partner->name.toString()};
  if (bill.kind->mode)
    record.offsetType = QString::fromUtf16(bill.kind->mode->type);
  if (!bill.kind->kind.lines) {
    record.cashOrOutgoing = accountOf(bill.counter.front());
    record.bankOrIncoming = accountOf(bill.lines.front());
    return record;
  }
  for (const AccountAmount& line : bill.lines)
    record.lines.append({accountOf(line), line.money, {}});
  const AccountAmount cash = bill.counterOn(u"1001");
  const AccountAmount bank = bill.counterOn(u"1002");
  record.cash = cash.money;
  record.bank = bank.money;
  record.cashOrOutgoing = accountOf(cash);
  record.bankOrIncoming = accountOf(bank);
  return record;
}

// The day of writing follows a space, as the write-off writes it.
void writeLinks(RowWriter& rows, const CashBill& bill)
{
  const QString day = DateText::shortForm(bill.day);
  for (const SettlementLink& link : bill.links)
    rows.insert("TabSFKHeXiao",
                {u' ' + day, link.goodsBill->code, bill.code, link.money.toText(), DateText::shortForm(link.goodsBill->day), day});
}

} // namespace

void writeCashBills(RowWriter& rows, const std::vector<CashBill>& bills)
{
  for (const CashBill& bill : bills) {
    const BillKind& kind = bill.kind->kind;
    const BillRecord record = recordOf(bill);
    rows.insert(kind.headerTable, BillRows::header(kind, record));
    for (int number = 1; number <= record.lines.size(); ++number)
      rows.insert(kind.lines->table, BillRows::line(kind, record, number));
    writeLinks(rows, bill);
  }
}

} // namespace SampleFirm
