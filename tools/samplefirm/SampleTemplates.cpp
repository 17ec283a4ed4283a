#include "samplefirm/SampleFirm.h"

#include "samplefirm/RowWriter.h"

#include <QFile>

// Resources of a library must be asked for by name, outside of any namespace.
static void loadResources()
{
  Q_INIT_RESOURCE(templates);
}

namespace SampleFirm {
namespace {

// One workbook a bill, in both formats; the kind is the bill's title, and the two fee offsets share a page.
struct Template {
  QStringView name;
  QStringView kind;
  const char* file;
};

constexpr Template Templates[] = {
    {u"付款单.xlsx", u"付款单", ":/templates/payment.xlsx"},
    {u"收款单.xlsx", u"收款单", ":/templates/receipt.xlsx"},
    {u"银行存取款单.xls", u"银行存取款单", ":/templates/bank.xls"},
    {u"费用开支单.xls", u"费用开支单", ":/templates/expense.xls"},
    {u"其他收入单.xlsx", u"其他收入单", ":/templates/other-income.xlsx"},
    {u"客户费用抵冲单.xlsx", u"费用抵冲单--客户", ":/templates/fee-offset.xlsx"},
    {u"供应商费用抵冲单.xlsx", u"费用抵冲单--供应商", ":/templates/fee-offset.xlsx"},
};

} // namespace

void writeTemplates(RowWriter& rows)
{
  loadResources();
  for (const Template& one : Templates) {
    QFile workbook(QString::fromLatin1(one.file));
    if (workbook.open(QIODevice::ReadOnly))
      rows.insert("TabExcelTable", {one.name, one.kind, u"1", workbook.readAll()});
  }
}

} // namespace SampleFirm
