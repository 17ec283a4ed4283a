#pragma once

#include "platform/Currency.h"

#include <QDate>

#include <vector>

class RowWriter;

// The goods bills of the sample firm: what it bought and sold, took back and gave away.
namespace SampleFirm {

struct GoodsKind;
struct Partner;
struct Ware;

struct GoodsLine {
  const Ware* ware;
  int amount;
  Currency price;
  int discountPercent; // what remains to be paid
  int taxPercent;
  bool isMatched; // with its invoice

  Currency money() const;
  Currency discounted() const;
  Currency tax() const;
  Currency withTax() const { return discounted() + tax(); }
};

struct GoodsBill {
  const GoodsKind* kind;
  const Partner* partner;
  QDate day;
  QString code;
  QStringView invoiceType;
  std::vector<GoodsLine> lines;
  Currency sum;
  Currency cash;   // paid at the counter
  Currency credit; // paid by bank at once
  Currency settled;

  Currency open() const { return sum - cash - credit - settled; }
};

std::vector<GoodsBill> makeGoodsBills();
bool isSale(const GoodsBill& bill);
bool isPurchase(const GoodsBill& bill);

void writeGoodsBills(RowWriter& rows, const std::vector<GoodsBill>& bills);

} // namespace SampleFirm
