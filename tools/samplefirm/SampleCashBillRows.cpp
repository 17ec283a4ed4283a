#include "samplefirm/SampleCashBills.h"

#include "platform/DateText.h"
#include "samplefirm/RowWriter.h"
#include "samplefirm/SampleCalendar.h"
#include "samplefirm/SampleChart.h"
#include "samplefirm/SamplePartners.h"

// The rows of the money documents, column by column as the screens write them.
namespace SampleFirm {
namespace {

constexpr QStringView Cashier = u"李出纳";
constexpr QStringView BaseMoney = u"人民币";
constexpr QStringView Rate = u"1";

// What a row repeats of its bill.
struct Common {
  QString day;
  QString sum;
  QStringView state;
  QStringView report;
  QStringView auditor;
  QStringView salesman;
};

Common commonOf(const CashBill& bill)
{
  return {DateText::shortForm(bill.day),         bill.sum().toText(),
          bill.isVoided ? u"作废" : u"正常",     bill.isVoided ? u"" : u"已生成会计凭证",
          isAudited(bill.day) ? u"张会计" : u"", bill.partner ? bill.partner->salesman : QStringView(u"")};
}

QStringView nameOf(const AccountAmount& part)
{
  return part.account.isEmpty() ? QStringView() : account(part.account).name;
}

void writeFund(RowWriter& rows, const CashBill& bill, const Common& c)
{
  rows.insert(bill.kind->headerTable, {bill.code, c.day, bill.partner->code, bill.partner->name, Cashier, c.sum, bill.remark,
                                       bill.kind->billType, c.state, c.report, c.salesman, BaseMoney, Rate, c.auditor});
}

void writeFundLine(RowWriter& rows, const CashBill& bill, const Common& c, const AccountAmount& line, const QString& number)
{
  rows.insert(bill.kind->lineTable, {number, c.day, bill.code, bill.partner->code, bill.partner->name, line.account, nameOf(line),
                                     line.money.toText(), u"", c.state, BaseMoney, Rate, c.auditor});
}

void writeTransfer(RowWriter& rows, const CashBill& bill, const Common& c)
{
  const AccountAmount& from = bill.counter.front();
  const AccountAmount& to = bill.lines.front();
  rows.insert(bill.kind->headerTable, {bill.code, c.day, c.sum, from.account, nameOf(from), to.account, nameOf(to), Cashier, bill.remark,
                                       bill.kind->billType, c.state, c.report, c.salesman, BaseMoney, Rate, c.auditor});
}

void writeFee(RowWriter& rows, const CashBill& bill, const Common& c)
{
  const AccountAmount cash = bill.counterOn(u"1001");
  const AccountAmount bank = bill.counterOn(u"1002");
  rows.insert(bill.kind->headerTable,
              {bill.code, c.day, c.sum, cash.money.toText(), bank.money.toText(), cash.account, bank.account, nameOf(cash), nameOf(bank),
               Cashier, bill.remark, bill.kind->billType, c.state, c.report, c.salesman, BaseMoney, Rate, c.auditor});
}

void writeFeeLine(RowWriter& rows, const CashBill& bill, const Common& c, const AccountAmount& line, const QString& number)
{
  rows.insert(bill.kind->lineTable,
              {number, c.day, bill.code, line.account, nameOf(line), line.money.toText(), u"", c.state, BaseMoney, Rate, c.auditor});
}

void writeOffset(RowWriter& rows, const CashBill& bill, const Common& c)
{
  const QStringView side = bill.kind == &CustomerOffset ? u"客户" : u"供应商";
  rows.insert(bill.kind->headerTable, {bill.code, c.day, bill.partner->code, bill.partner->name, Cashier, c.sum, bill.remark,
                                       bill.kind->billType, c.state, side, c.report, c.salesman, BaseMoney, Rate, c.auditor});
}

void writeHeader(RowWriter& rows, const CashBill& bill, const Common& common)
{
  switch (bill.kind->layout) {
  case CashLayout::Fund: return writeFund(rows, bill, common);
  case CashLayout::Transfer: return writeTransfer(rows, bill, common);
  case CashLayout::Fee: return writeFee(rows, bill, common);
  case CashLayout::Offset: return writeOffset(rows, bill, common);
  }
}

void writeLines(RowWriter& rows, const CashBill& bill, const Common& common)
{
  if (!bill.kind->lineTable)
    return;
  int number = 0;
  for (const AccountAmount& line : bill.lines) {
    const QString text = QString::number(++number);
    // An offset's line has the columns of a fund's.
    if (bill.kind->layout == CashLayout::Fee)
      writeFeeLine(rows, bill, common, line, text);
    else
      writeFundLine(rows, bill, common, line, text);
  }
}

// The day of writing stands behind a blank, as the bench writes it.
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
    const Common common = commonOf(bill);
    writeHeader(rows, bill, common);
    writeLines(rows, bill, common);
    writeLinks(rows, bill);
  }
}

} // namespace SampleFirm
