#pragma once

#include "database/Statement.h"
#include "ledger/BillKinds.h"

#include <QString>

#include <array>

// How the bills of each kind become debits and credits, as data.
namespace Vouchers {

enum class Side { Debtor, Lender };

// Where the account of a line is found.
enum class LineSource {
  None,
  Partner, // in a column of TabClient; the line has the partner's name
  Header,  // in a column of the bill's header
  Rows,    // in each of the bill's lines, or else in its header; one that is not in the chart is skipped
};

// Numbered after the previous line.
constexpr int NextNumber = 0;

struct VoucherLineRule {
  LineSource source = LineSource::None;
  const char* account = "";
  const char* name = "";
  const char* amount = "";
  Side side = Side::Debtor;
  int number = NextNumber; // a fixed one counts also if the line is not written
  bool evenIfZero = false; // otherwise an amount of 0 writes no line
};

struct VoucherRules {
  const BillKind& kind;
  const OffsetMode* mode = nullptr; // of fee offsets; null: any
  const char16_t* suffix;           // of the text of every line
  // The partner's accounts that are read; with them the lines name the partner where an account requires one. Empty
  // for a bill without a partner.
  SqlLiteral partnerAccounts = {};
  bool inBaseMoney = false; // otherwise in the currency on screen
  std::array<VoucherLineRule, 3> lines;
};

// The rules of a kind of bill; null if its header table makes no vouchers. `SustainType` is that of a fee offset.
const VoucherRules* voucherRulesFor(const QString& headerTable, const QString& SustainType);

} // namespace Vouchers
