#include "samplefirm/SampleGoodsBills.h"

#include "platform/DateText.h"
#include "samplefirm/RowWriter.h"
#include "samplefirm/SampleCalendar.h"
#include "samplefirm/SampleMoney.h"
#include "samplefirm/SamplePartners.h"
#include "samplefirm/SampleWares.h"

namespace SampleFirm {

struct GoodsKind {
  const char* headerTable;
  const char* lineTable;
  QStringView prefix;
  QStringView billType;
  bool fromCustomers;
  int bills;       // over the whole time
  int leastAmount; // of a line
};

namespace {

constexpr GoodsKind Kinds[] = {
    {"TabInBill", "TabInBillInf", u"CGD", u"采购入库", false, 30, 20},
    {"TabOutBill", "TabOutBillInf", u"XSD", u"销售出库", true, 66, 4},
    {"TabInCancleBill", "TabInCancleBillInf", u"CTD", u"采购退货", false, 3, 1},
    {"TabOutCancleBill", "TabOutCancleBillInf", u"XTD", u"销售退货", true, 4, 1},
    {"TabElseInBill", "TabElseInBillInf", u"QRD", u"其他入库", false, 4, 1},
    {"TabElseOutBill", "TabElseOutBillInf", u"QCD", u"其他出库", true, 5, 1},
};
constexpr const GoodsKind& Purchase = Kinds[0];
constexpr const GoodsKind& Sale = Kinds[1];

struct Invoice {
  QStringView type;
  int taxPercent;
};
constexpr Invoice Invoices[] = {{u"增值税发票", 13}, {u"普通发票", 3}, {u"收据", 0}};

bool isMatched(const QDate& day, int line)
{
  const int month = day.month() - firstDay().month();
  return month == 0 || (month == 1 && line % 2 == 0);
}

GoodsLine makeLine(const GoodsKind& kind, int bill, int line, int taxPercent, const QDate& day)
{
  const auto all = wares();
  const Ware& ware = all[std::size_t(bill * 7 + line * 5) % all.size()];
  const int amount = kind.leastAmount + (bill * 3 + line * 7) % (kind.leastAmount * 4);
  const int discount = kind.fromCustomers && bill % 4 == 0 ? 95 : 100;
  return {&ware, amount, kind.fromCustomers ? ware.price : ware.cost, discount, taxPercent, isMatched(day, line)};
}

// Some bills are paid when the goods change hands: in cash altogether, or half of it by bank.
void payAtOnce(GoodsBill& bill, int number)
{
  if (bill.kind == &Sale && number % 6 == 5)
    bill.cash = bill.sum;
  else if ((bill.kind == &Sale && number % 7 == 3) || (bill.kind == &Purchase && number % 9 == 4))
    bill.credit = halfOf(bill.sum);
}

// The n-th bill of a kind takes the next days, partners and goods in turn.
GoodsBill makeBill(const GoodsKind& kind, int number)
{
  const auto partners = kind.fromCustomers ? customers() : suppliers();
  const Invoice& invoice = Invoices[number % int(std::size(Invoices))];
  GoodsBill bill;
  bill.kind = &kind;
  bill.partner = &partners[std::size_t(number) * 5 % partners.size()];
  bill.day = firstDay().addDays(number * (firstDay().daysTo(lastDay()) + 1) / kind.bills);
  bill.invoiceType = invoice.type;
  for (int line = 0; line < 2 + number % 3; ++line) {
    bill.lines.push_back(makeLine(kind, number, line, invoice.taxPercent, bill.day));
    bill.sum += bill.lines.back().withTax();
  }
  payAtOnce(bill, number);
  return bill;
}

void writeHeader(RowWriter& rows, const GoodsBill& bill)
{
  rows.insert(bill.kind->headerTable,
              {bill.code, DateText::shortForm(bill.day), bill.kind->billType, bill.partner->code, bill.partner->name,
               bill.partner->salesman, u"胡保管", bill.sum.toText(), u"0", bill.cash.toText(), bill.credit.toText(), bill.settled.toText(),
               u"", u"正常", bill.invoiceType, u"人民币", u"1", isAudited(bill.day) ? u"张会计" : u""});
}

void writeLine(RowWriter& rows, const GoodsBill& bill, const GoodsLine& line, int number)
{
  const Ware& ware = *line.ware;
  const Currency price = Currency::ofTenThousandths(line.price.tenThousandths() * line.discountPercent / 100);
  const Currency priceWithTax = Currency::ofTenThousandths(price.tenThousandths() * (100 + line.taxPercent) / 100);
  rows.insert(bill.kind->lineTable, {bill.code,
                                     QString::number(number),
                                     DateText::shortForm(bill.day),
                                     ware.code,
                                     ware.name,
                                     ware.WareSpec,
                                     ware.attribute,
                                     ware.unit,
                                     QString::number(line.amount),
                                     line.price.toText(),
                                     line.money().toText(),
                                     QString::number(line.discountPercent),
                                     price.toText(),
                                     line.discounted().toText(),
                                     QString::number(line.taxPercent),
                                     line.tax().toText(),
                                     priceWithTax.toText(),
                                     line.withTax().toText(),
                                     u"",
                                     line.isMatched ? u"1" : u"0"});
}

} // namespace

Currency GoodsLine::money() const
{
  return Currency::ofTenThousandths(price.tenThousandths() * amount);
}

Currency GoodsLine::discounted() const
{
  return percentOf(money(), discountPercent);
}

Currency GoodsLine::tax() const
{
  return percentOf(discounted(), taxPercent);
}

std::vector<GoodsBill> makeGoodsBills()
{
  std::vector<GoodsBill> bills;
  for (const GoodsKind& kind : Kinds) {
    QDate day;
    int serial = 0;
    for (int number = 0; number < kind.bills; ++number) {
      bills.push_back(makeBill(kind, number));
      GoodsBill& bill = bills.back();
      serial = bill.day == day ? serial + 1 : 1;
      day = bill.day;
      bill.code = documentCode(kind.prefix, day, serial);
    }
  }
  return bills;
}

bool isSale(const GoodsBill& bill)
{
  return bill.kind == &Sale;
}

bool isPurchase(const GoodsBill& bill)
{
  return bill.kind == &Purchase;
}

void writeGoodsBills(RowWriter& rows, const std::vector<GoodsBill>& bills)
{
  for (const GoodsBill& bill : bills) {
    writeHeader(rows, bill);
    int number = 0;
    for (const GoodsLine& line : bill.lines)
      writeLine(rows, bill, line, ++number);
  }
}

} // namespace SampleFirm
