#include "accountset/SampleFirm.h"

#include "accountset/SampleCashBills.h"
#include "accountset/SampleChart.h"
#include "accountset/SampleGoodsBills.h"
#include "accountset/SamplePartners.h"
#include "accountset/SampleVouchers.h"
#include "accountset/SampleWares.h"

namespace SampleFirm {

void write(RowWriter& rows)
{
  writeSettings(rows);
  writeTemplates(rows);
  writeChart(rows);
  writePartners(rows);
  writeStaff(rows);
  writeWares(rows);

  // A money bill settles goods bills: these are written when it is known by how much.
  std::vector<GoodsBill> goodsBills = makeGoodsBills();
  const std::vector<CashBill> cashBills = makeCashBills(goodsBills);
  writeGoodsBills(rows, goodsBills);
  writeCashBills(rows, cashBills);
  writeVouchers(rows, cashBills);
}

} // namespace SampleFirm
