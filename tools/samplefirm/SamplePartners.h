#pragma once

#include <QString>

#include <span>

class RowWriter;

// The sample firm's partners in their tree of categories, and its staff by department.
namespace SampleFirm {

struct Partner {
  QStringView code;
  QStringView name;
  QStringView category;
  QStringView salesman;
  QStringView address;
  QStringView linkMan;
  // What the partner owed at the opening, in yuan; negative is what the firm owed him.
  int opening;
};

// The accounts of every partner but those of the category "1032", which have none yet.
constexpr QStringView ReceivableAccount = u"1122";
constexpr QStringView PayableAccount = u"2202";

std::span<const Partner> suppliers();
std::span<const Partner> customers();
std::span<const Partner> others();

// With the closing balance of the day before the sample firm's first month.
void writePartners(RowWriter& rows);
void writeStaff(RowWriter& rows);

} // namespace SampleFirm
