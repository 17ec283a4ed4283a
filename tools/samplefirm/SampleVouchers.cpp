#include "samplefirm/SampleVouchers.h"

#include "platform/DateText.h"
#include "samplefirm/RowWriter.h"
#include "samplefirm/SampleCalendar.h"
#include "samplefirm/SampleCashBills.h"
#include "samplefirm/SampleChart.h"
#include "samplefirm/SamplePartners.h"

#include <map>

namespace SampleFirm {
namespace {

// What a voucher and its lines share.
struct Voucher {
  const CashBill& bill;
  QString code;
  QString day;
  QString year;
  QString month;
  QString number; // in the main book, by month
  QString sum;
  QStringView accountant; // who audited and posted it; nobody yet if empty

  QStringView state() const { return accountant.isEmpty() ? u"未审核" : u"已登账"; }
};

void writeHeader(RowWriter& rows, const Voucher& v)
{
  const CashKind& kind = *v.bill.kind;
  rows.insert("TabWarrant", {v.code,       v.day,
                             v.year,       v.month,
                             v.number,     u"1",
                             u"李出纳",    v.accountant,
                             v.accountant, u"记账凭证",
                             v.state(),    v.sum,
                             v.sum,        v.bill.code,
                             u"0",         u"0",
                             u"0",         u"0",
                             u"1",         u"0",
                             u"0",         kind.voucherType,
                             u"",          kind.voucherWord,
                             u"0"});
}

// One line; a name is that of the account, or of the partner whose account it is.
struct Line {
  const AccountAmount& part;
  bool isDebit;
  bool isCounter;
  int number;
};

// An account from the head of a bill is named with its code in front, one of a line as it is stored.
QString allNameOf(const Voucher& v, const Line& line)
{
  const QString stored = fullName(line.part.account);
  return line.isCounter && v.bill.kind->kind.lines ? line.part.account.toString() + u'>' + stored : stored;
}

void writeLine(RowWriter& rows, const Voucher& v, const Line& line)
{
  const CashKind& kind = *v.bill.kind;
  const Account& on = account(line.part.account);
  const QString money = line.part.money.toText();
  const QString summary = u'第' + v.bill.code + kind.summaryEnd.toString();
  const bool tracksPartner = v.bill.partner && on.tracks == Account::Tracks::Partner;
  rows.insert("TabWarrantInf", {QString::number(line.number),
                                v.day,
                                v.year,
                                v.month,
                                v.code,
                                summary,
                                on.code,
                                line.isCounter && v.bill.partner ? v.bill.partner->name : on.name,
                                allNameOf(v, line),
                                line.isDebit ? money : QStringLiteral("0"),
                                line.isDebit ? QStringLiteral("0") : money,
                                v.state(),
                                v.number,
                                u"0",
                                u"0",
                                u"1",
                                u"0",
                                u"0",
                                kind.voucherWord,
                                tracksPartner ? v.bill.partner->code : QStringView(),
                                u"",
                                u"",
                                u"0",
                                u"0",
                                u"",
                                u"人民币",
                                u"1"});
}

// Of an income, number 1 is the cash part, 2 the bank part and 3 the first line, written or not.
void writeLines(RowWriter& rows, const Voucher& v)
{
  const CashKind& kind = *v.bill.kind;
  const bool isIncome = &kind == &Income;
  int number = isIncome && v.bill.counterOn(u"1001").money.isZero() ? 1 : 0;
  for (const AccountAmount& part : v.bill.counter)
    writeLine(rows, v, {part, !kind.linesAreDebit, true, ++number});
  if (isIncome)
    number = 2;
  for (const AccountAmount& part : v.bill.lines)
    writeLine(rows, v, {part, kind.linesAreDebit, false, ++number});
}

void writeSettings(RowWriter& rows)
{
  for (const CashKind& kind : CashKinds)
    if (&kind != &Withdrawal) // shares its setting with the deposit
      rows.insert("TabJXCAccount", {kind.settingName, u"1", u"1", u"0", u"0", kind.voucherType});
}

} // namespace

void writeVouchers(RowWriter& rows, const std::vector<CashBill>& bills)
{
  writeSettings(rows);
  std::map<QDate, int> ofDay;
  std::map<int, int> ofMonth;
  for (const CashBill& bill : bills) {
    if (bill.isVoided)
      continue;
    const int serial = ++ofDay[bill.day];
    const Voucher voucher{bill,
                          documentCode(u"PZD", bill.day, serial),
                          DateText::shortForm(bill.day),
                          QString::number(bill.day.year()),
                          QString::number(bill.day.month()),
                          QString::number(++ofMonth[bill.day.month()]),
                          bill.sum().toText(),
                          isPosted(bill.day) ? u"张会计" : u""};
    writeHeader(rows, voucher);
    writeLines(rows, voucher);
  }
}

} // namespace SampleFirm
