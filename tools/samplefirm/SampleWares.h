#pragma once

#include "platform/Currency.h"

#include <span>

class RowWriter;

// The goods that the sample firm trades in.
namespace SampleFirm {

struct Ware {
  QStringView code;
  QStringView name;
  QStringView WareSpec;
  QStringView unit;
  QStringView mnemonic;
  QStringView category;
  QStringView attribute; // code in TabAttribute, or empty
  Currency cost;
  Currency price;
};

std::span<const Ware> wares();

void writeWares(RowWriter& rows);

} // namespace SampleFirm
