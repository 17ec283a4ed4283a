#pragma once

#include <QString>

class RowWriter;

// The sample firm's chart of accounts: six classes ("1" to "6"), below each the accounts of four digits,
// below these groups of two digits more. A code's parent is the code without its last group.
namespace SampleFirm {

struct Account {
  // What a line on the account has to name besides the amount.
  enum class Tracks { Nothing, Partner, Person, Department };
  enum class Side { Debit, Credit };

  QStringView code;
  QStringView name;
  Side side;
  Tracks tracks = Tracks::Nothing;
  bool closed = false;
};

// The account of a code, which must be one of the chart.
const Account& account(QStringView code);

// The names from below the class down to the account, joined by ">".
QString fullName(QStringView code);

void writeChart(RowWriter& rows);

} // namespace SampleFirm
