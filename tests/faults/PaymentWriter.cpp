#include "PaymentWriter.h"

#include "ledger/BillCode.h"
#include "platform/RunTimeError.h"
#include "vouchers/Voucher.h"
#include "vouchers/VoucherBill.h"

PaymentWriter::PaymentWriter(const QString& folder, const SessionParams& params) : m_machine(folder)
{
  m_session.params = params;
}

SessionParams PaymentWriter::onFile()
{
  SessionParams params;
  params.DatabaseType = QStringLiteral("Access");
  params.IsAccessSQL = true;
  params.ConDataName = QStringLiteral("A001.mdb");
  params.UserName = QStringLiteral("系统管理员");
  params.IsJXC = true;
  return params;
}

PaymentWriter::Outcome PaymentWriter::save(const QList<int>& amounts)
{
  m_desk.boxes.clear();
  Outcome outcome;
  try {
    outcome.isWritten = write(amounts);
  } catch (const RunTimeError& error) {
    m_desk.stop(error.text());
  }
  for (const Desk::Box& box : m_desk.boxes)
    outcome.boxes.append(box.text);
  return outcome;
}

bool PaymentWriter::write(const QList<int>& amounts)
{
  BillRecord bill{.code = ModFuntion::GetNextBillCode(m_session, QString::fromLatin1(m_store.kind().prefix), m_store.headerTable()),
                  .date = QDate(2022, 6, 8),
                  .operatorName = m_session.params.UserName,
                  .saleMan = {},
                  .remark = {},
                  .type = QString::fromUtf16(m_store.kind().operation),
                  .auditor = {}};
  bill.partner = {QStringLiteral("G011"), QStringLiteral("清泉饮料公司")};
  for (const int amount : amounts) {
    bill.lines.append({{QStringLiteral("100201"), QStringLiteral("基本存款户")}, Currency::ofTenThousandths(amount * 10000LL), {}});
    bill.sum += bill.lines.last().amount;
  }
  if (!m_store.save(bill, false))
    return false;
  if (!m_session.params.IsJXC)
    Vouchers::GenerateVoucher(m_session, {.JXCTabName = QString::fromUtf16(m_store.kind().name),
                                          .headerTable = m_store.headerTable(),
                                          .code = m_store.bill().code,
                                          .TxtCode = bill.partner.code,
                                          .TxtMoneyRate = QStringLiteral("1")});
  return true;
}
