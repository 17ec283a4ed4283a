#include "samplefirm/SampleFirm.h"

#include "samplefirm/RowWriter.h"
#include "samplefirm/SampleCashBills.h"
#include "samplefirm/SampleChart.h"
#include "samplefirm/SampleGoodsBills.h"
#include "samplefirm/SamplePartners.h"
#include "samplefirm/SampleVouchers.h"
#include "samplefirm/SampleWares.h"

namespace SampleFirm {

tl::expected<void, QString> write(sqlite3* database)
{
  RowWriter rows(database);
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
  return rows.result();
}

} // namespace SampleFirm
