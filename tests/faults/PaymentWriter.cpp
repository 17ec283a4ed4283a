#include "PaymentWriter.h"

#include "ledger/BillCode.h"
#include "platform/RunTimeError.h"
#include "vouchers/Voucher.h"
#include "vouchers/VoucherBill.h"

PaymentWriter::Outcome PaymentWriter::save(const QList<int>& amounts)
{
  m_desk.boxes.clear();
  Outcome outcome;
  try {
    m_store.inOneTransaction([&] { outcome.isWritten = write(amounts); });
  } catch (const RunTimeError& error) {
    m_desk.stop(error.text());
  } catch (const ActionLost&) {
    outcome.isWritten = false;
  }
  for (const Desk::Box& box : m_desk.boxes)
    outcome.boxes.append(box.text);
  return outcome;
}

bool PaymentWriter::write(const QList<int>& amounts)
{
  const BillKind& kind = m_store.kind();
  BillRecord bill{.code = ModFuntion::GetNextBillCode(m_session, QString::fromLatin1(kind.prefix), m_store.headerTable()),
                  .date = QDate(2022, 6, 8),
                  .operatorName = m_session.params.UserName,
                  .saleMan = {},
                  .remark = {},
                  .type = QString::fromUtf16(kind.operation),
                  .auditor = {}};
  bill.partner = {"G011", "清泉饮料公司"};
  for (const int amount : amounts) {
    bill.lines.append({{"100201", "基本存款户"}, Currency::ofTenThousandths(amount * 10000LL), {}});
    bill.sum += bill.lines.last().amount;
  }
  if (!m_store.save(bill, false))
    return false;
  Vouchers::GenerateVoucher(m_session, {.JXCTabName = QString::fromUtf16(kind.name),
                                        .headerTable = m_store.headerTable(),
                                        .code = m_store.bill().code,
                                        .TxtCode = bill.partner.code,
                                        .TxtMoneyRate = "1"});
  return true;
}
