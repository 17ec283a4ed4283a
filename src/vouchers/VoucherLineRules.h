#pragma once

#include "database/Statement.h"

#include <QString>

#include <array>

// How the bills of each kind become debits and credits, as data.
namespace Vouchers {

enum class Side { Debtor, Lender };

// Where the account of a line stands.
enum class LineSource {
  None,
  Partner, // in a column of TabClient; the line bears the partner's name
  Header,  // in a column of the bill's header
  Rows,    // in each row of `rowTable` that belongs to the bill; one that the chart does not have drops out
};

// The line takes the number behind that of the line written last.
constexpr int NextNumber = 0;

struct VoucherLineRule {
  LineSource source = LineSource::None;
  const char* account = "";
  const char* name = "";
  const char* amount = "";
  Side side = Side::Debtor;
  int number = NextNumber; // a fixed one counts also if the line is not written
  bool evenIfZero = false; // otherwise an amount of 0 makes no line
};

struct VoucherRules {
  const char* headerTable;
  const char16_t* SustainType = u""; // empty: any
  const char16_t* suffix;            // of the text of every line
  // The partner's accounts that are read; with them the lines name the partner where an account asks
  // for one. Empty for a bill without a partner.
  SqlLiteral partnerAccounts = {};
  bool inBaseMoney = false; // otherwise in the currency on screen
  const char* rowTable;
  const char* rowKey; // column that holds the bill's code
  std::array<VoucherLineRule, 3> lines;
};

// The rules of a kind of bill; null if its header table makes no vouchers.
const VoucherRules* voucherRulesFor(const QString& headerTable, const QString& SustainType);

} // namespace Vouchers
