#include "samplefirm/SampleCashBills.h"

#include "samplefirm/SampleCalendar.h"
#include "samplefirm/SampleMoney.h"
#include "samplefirm/SamplePartners.h"

#include <algorithm>
#include <map>

namespace SampleFirm {
namespace {

// Money that settles no goods bill yet.
struct Advance {
  bool isReceipt;
  int month, day;
  QStringView partner, account;
  int yuan;
  QStringView remark;
  bool isVoided = false;
};

constexpr Advance Advances[] = {
    {true, 4, 8, u"K003", u"100201", 20000, u"预收货款"},    {false, 4, 12, u"G004", u"100202", 15000, u"预付订货款"},
    {true, 5, 11, u"K020", u"1001", 1500, u"收旧欠"},        {false, 5, 16, u"Q001", u"1001", 2400, u"结清上季运费"},
    {true, 6, 1, u"K001", u"100201", 30000, u"收旧欠"},      {true, 6, 2, u"K009", u"1001", 900, u"重复录入", true},
    {false, 6, 2, u"G001", u"100201", 50000, u"付上季欠款"}, {true, 6, 7, u"K005", u"100202", 12000, u"预收货款"},
    {false, 6, 7, u"G011", u"100201", 8600, u"付饮料款"},    {true, 6, 8, u"K014", u"100201", 5000, u"收旧欠"},
    {false, 6, 8, u"G005", u"1001", 1200, u"付部分货款"},
};

struct Transfer {
  int month, day;
  QStringView from, to;
  int yuan;
  QStringView remark;
};

constexpr Transfer Transfers[] = {
    {4, 6, u"100201", u"1001", 8000, u"提备用金"}, {4, 20, u"1001", u"100201", 15000, u"存销货款"},
    {5, 5, u"100201", u"1001", 6000, u"提备用金"}, {5, 18, u"1001", u"100202", 12000, u"存销货款"},
    {6, 1, u"100201", u"1001", 5000, u"提备用金"}, {6, 6, u"100201", u"100204", 9000, u"转入税款"},
};

// An expense or an income of one or two accounts; what is not cash went by bank.
struct Fee {
  bool isIncome;
  int month, day;
  QStringView account;
  int yuan;
  QStringView secondAccount;
  int secondYuan;
  int cashYuan;
  QStringView remark;
};

constexpr Fee Fees[] = {
    {false, 4, 5, u"660203", 6000, u"660202", 850, 850, u"四月房租和水电"},
    {false, 4, 15, u"660101", 1280, u"", 0, 1280, u"送货运费"},
    {true, 4, 22, u"630103", 320, u"", 0, 320, u"变卖旧包装"},
    {false, 4, 26, u"660204", 430, u"660201", 265, 695, u"电话费和办公用品"},
    {false, 5, 5, u"660203", 6000, u"660202", 910, 910, u"五月房租和水电"},
    {false, 5, 13, u"660104", 760, u"", 0, 760, u"招待客户"},
    {true, 5, 20, u"605101", 2500, u"", 0, 0, u"门市柜台租金"},
    {false, 5, 24, u"660102", 3200, u"660103", 540, 540, u"店庆广告"},
    {true, 5, 31, u"660303", 186, u"", 0, 0, u"存款利息"},
    {false, 6, 2, u"660105", 1460, u"660205", 980, 2440, u"出差报销"},
    {false, 6, 6, u"660203", 6000, u"660202", 1020, 1020, u"六月房租和水电"},
    {true, 6, 7, u"630102", 600, u"605102", 400, 1000, u"运输赔款和安装服务"},
    {false, 6, 8, u"660302", 75, u"", 0, 0, u"银行手续费"},
};

// A fee set off against what a partner owes, or is owed.
struct Offset {
  bool isCustomer;
  int month, day;
  QStringView partner, account;
  int yuan;
  QStringView remark;
};

constexpr Offset Offsets[] = {
    {true, 4, 18, u"K002", u"660106", 800, u"促销费抵货款"},   {false, 4, 25, u"G002", u"660101", 450, u"代垫运费抵货款"},
    {true, 5, 17, u"K007", u"660102", 500, u"店内广告抵货款"}, {false, 6, 3, u"G010", u"660103", 300, u"包装破损抵货款"},
    {true, 6, 6, u"K006", u"660106", 260, u"堆头费抵货款"},
};

QDate dayOf(int month, int day)
{
  return QDate(firstDay().year(), month, day);
}

const Partner* partnerOf(QStringView code)
{
  for (const auto group : {suppliers(), customers(), others()})
    for (const Partner& partner : group)
      if (partner.code == code)
        return &partner;
  return nullptr;
}

CashBill partnerBill(const CashKind& kind, const QDate& day, const Partner* partner, std::vector<AccountAmount> lines,
                     QStringView partnerAccount)
{
  CashBill bill;
  bill.kind = &kind;
  bill.day = day;
  bill.partner = partner;
  bill.lines = std::move(lines);
  bill.counter = {{partnerAccount, bill.sum()}};
  return bill;
}

CashBill fundBill(bool isReceipt, const QDate& day, const Partner* partner, std::vector<AccountAmount> lines)
{
  return partnerBill(isReceipt ? Receipt : Payment, day, partner, std::move(lines), isReceipt ? ReceivableAccount : PayableAccount);
}

// What a partner settles on a day: all his open bills before it, of the last one half if he is slow.
std::vector<SettlementLink> settle(std::vector<GoodsBill>& goodsBills, const Partner& partner, const QDate& day, bool isSlow)
{
  std::vector<GoodsBill*> open;
  for (GoodsBill& bill : goodsBills)
    if ((isSale(bill) || isPurchase(bill)) && bill.partner == &partner && bill.day < day && !bill.open().isZero())
      open.push_back(&bill);
  std::vector<SettlementLink> links;
  for (GoodsBill* const bill : open) {
    const Currency money = isSlow && bill == open.back() ? halfOf(bill->open()) : bill->open();
    if (money.isZero())
      continue;
    bill->settled += money;
    links.push_back({bill, money});
  }
  return links;
}

// One partner in four brings a part of the sum in cash.
std::vector<AccountAmount> splitByAccount(Currency sum, std::size_t partner)
{
  constexpr Currency InCash = yuan(500);
  if (partner % 4 != 3 || sum <= InCash)
    return {{partner % 2 == 0 ? u"100201" : u"100202", sum}};
  return {{u"1001", InCash}, {u"100201", sum - InCash}};
}

void addSettlements(std::vector<CashBill>& bills, std::vector<GoodsBill>& goodsBills, const QDate& day, bool isReceipt,
                    std::size_t everyHowMany)
{
  const auto partners = isReceipt ? customers() : suppliers();
  for (std::size_t i = 0; i < partners.size(); i += everyHowMany) {
    std::vector<SettlementLink> links = settle(goodsBills, partners[i], day, i % 2 == 1);
    Currency sum;
    for (const SettlementLink& link : links)
      sum += link.money;
    if (sum.isZero())
      continue;
    bills.push_back(fundBill(isReceipt, day, &partners[i], splitByAccount(sum, i)));
    bills.back().links = std::move(links);
    bills.back().remark = isReceipt ? u"收货款" : u"付货款";
  }
}

void addAdvances(std::vector<CashBill>& bills)
{
  for (const Advance& row : Advances) {
    bills.push_back(fundBill(row.isReceipt, dayOf(row.month, row.day), partnerOf(row.partner), {{row.account, yuan(row.yuan)}}));
    bills.back().remark = row.remark;
    bills.back().isVoided = row.isVoided;
  }
}

void addTransfers(std::vector<CashBill>& bills)
{
  for (const Transfer& row : Transfers) {
    CashBill bill;
    bill.kind = row.from.startsWith(u"1001") ? &Deposit : &Withdrawal;
    bill.day = dayOf(row.month, row.day);
    bill.remark = row.remark;
    bill.lines = {{row.to, yuan(row.yuan)}};
    bill.counter = {{row.from, yuan(row.yuan)}};
    bills.push_back(std::move(bill));
  }
}

void addFees(std::vector<CashBill>& bills)
{
  for (const Fee& row : Fees) {
    CashBill bill;
    bill.kind = row.isIncome ? &Income : &Expense;
    bill.day = dayOf(row.month, row.day);
    bill.remark = row.remark;
    bill.lines = {{row.account, yuan(row.yuan)}};
    if (row.secondYuan != 0)
      bill.lines.push_back({row.secondAccount, yuan(row.secondYuan)});
    if (row.cashYuan != 0)
      bill.counter.push_back({u"1001", yuan(row.cashYuan)});
    if (const int byBank = row.yuan + row.secondYuan - row.cashYuan; byBank != 0)
      bill.counter.push_back({u"100201", yuan(byBank)});
    bills.push_back(std::move(bill));
  }
}

void addOffsets(std::vector<CashBill>& bills)
{
  for (const Offset& row : Offsets) {
    const CashKind& kind = row.isCustomer ? CustomerOffset : SupplierOffset;
    bills.push_back(partnerBill(kind, dayOf(row.month, row.day), partnerOf(row.partner), {{row.account, yuan(row.yuan)}},
                                row.isCustomer ? ReceivableAccount : PayableAccount));
    bills.back().remark = row.remark;
  }
}

void number(std::vector<CashBill>& bills)
{
  std::map<std::pair<const BillKind*, QDate>, int> serials;
  for (CashBill& bill : bills)
    bill.code = documentCode(QString::fromLatin1(bill.kind->kind.prefix), bill.day, ++serials[{&bill.kind->kind, bill.day}]);
}

} // namespace

Currency CashBill::sum() const
{
  Currency total;
  for (const AccountAmount& line : lines)
    total += line.money;
  return total;
}

AccountAmount CashBill::counterOn(QStringView accountHead) const
{
  const auto found = std::ranges::find_if(counter, [&](const AccountAmount& part) { return part.account.startsWith(accountHead); });
  return found == counter.end() ? AccountAmount{} : *found;
}

std::vector<CashBill> makeCashBills(std::vector<GoodsBill>& goodsBills)
{
  std::vector<CashBill> bills;
  for (const bool isReceipt : {true, false}) {
    addSettlements(bills, goodsBills, dayOf(4, 28), isReceipt, 1);
    addSettlements(bills, goodsBills, dayOf(5, 27), isReceipt, 1);
    addSettlements(bills, goodsBills, dayOf(6, 6), isReceipt, 3);
  }
  addAdvances(bills);
  addTransfers(bills);
  addFees(bills);
  addOffsets(bills);
  std::ranges::stable_sort(bills, {}, &CashBill::day);
  number(bills);
  return bills;
}

} // namespace SampleFirm
