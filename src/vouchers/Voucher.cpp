#include "vouchers/Voucher.h"

#include "ledger/AccountingCalendar.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "vouchers/VoucherBill.h"
#include "vouchers/VoucherHeader.h"

namespace Vouchers {
namespace {

SourceBill sourceOf(Session& session, const Recordset& row)
{
  const auto date = DateText::parse(row.text("Datee"));
  if (!date)
    throw RunTimeError(RunTimeError::TypeMismatch, QStringLiteral("类型不匹配：%1").arg(row.text("Datee")));
  return {row.text("Code"), *date, ModFuntion::GetAccountingYear(session, *date), ModFuntion::GetAccountingMonth(session, *date),
          row.text("SumMoney")};
}

// True, after its message, if the bill's date lies in the last closed accounting period or ahead of it.
bool periodIsClosed(Session& session, const SourceBill& bill)
{
  const Recordset closed =
      OpenRecordset(session, {u"select top 1 DateeY,DateeM from TabWriteAccountant   where  State='已结账'   order by  {} desc,{} desc",
                              SqlDialect::integer(session, u"DateeY"), SqlDialect::integer(session, u"DateeM")});
  if (closed.eof())
    return false;
  const double year = closed.number("DateeY");
  const double month = closed.number("DateeM");
  const double billYear = NumberText::numericPrefix(bill.DateeY);
  const double billMonth = NumberText::numericPrefix(bill.DateeM);
  if (billYear > year || (billYear == year && billMonth > month))
    return false;
  session.desk.inform(QStringLiteral("最后一次会计期末结转为 %1 年 %2 月，本凭证录入日期有误！（不应小于最后一次结转会计期），"
                                     "将跳过自动生成会计凭证！")
                          .arg(NumberText::ofDouble(year), NumberText::ofDouble(month)));
  return true;
}

// The first voucher of an accounting period opens the period's row.
void openPeriod(Session& session, const SourceBill& bill)
{
  const Recordset period =
      OpenRecordset(session, {u"select State from TabWriteAccountant where  DateeY='{}'  and DateeM='{}' ", bill.DateeY, bill.DateeM});
  if (period.eof())
    OpenRecordset(session, {u"insert into TabWriteAccountant values( '{}','{}','未审核') ", bill.DateeY, bill.DateeM});
}

// False if the period is closed or no code is free: then nothing was written. The numbers are counted over the period
// that the calendar month names, while the guard and the voucher go by the accounting month.
bool writeVoucher(Session& session, const VoucherBill& bill, const Recordset& row)
{
  const SourceBill source = sourceOf(session, row);
  const QString year = QString::number(source.Datee.year());
  const QString month = QString::number(source.Datee.month());
  const QDate start = ModFuntion::GetPeriodStartDate(session, year, month);
  const QDate end = ModFuntion::GetPeriodEndDate(session, year, month);
  if (periodIsClosed(session, source))
    return false;
  const auto settings = drawVoucherSettings(session, bill.JXCTabName, start, end);
  if (!settings)
    return true;
  const auto entry = writeVoucherHeader(session, source, *settings);
  if (!entry)
    return false;
  WriteVoucherLines(session, bill, {u"select * from {} Where Code='{}'", SqlName(bill.headerTable), source.Code}, *entry);
  openPeriod(session, source);
  return true;
}

} // namespace

void GenerateVoucher(Session& session, const VoucherBill& bill)
{
  if (bill.code.isEmpty())
    return;
  const Recordset row = OpenRecordset(session, {u"select * from {} where Code='{}'", SqlName(bill.headerTable), bill.code});
  if (row.eof())
    return;
  if (row.number("SumMoney") != 0 && !writeVoucher(session, bill, row))
    return;
  OpenRecordset(session, {u"update {} set Report='已生成会计凭证'  where Code='{}'", SqlName(bill.headerTable), row.text("Code")});
}

void DeleteVoucher(Session& session, const QString& billCode)
{
  if (Trim(billCode).isEmpty())
    return;
  const Recordset voucher = OpenRecordset(session, {u"select Code from TabWarrant where JXCBillCode='{}'", billCode});
  const QString code = voucher.eof() ? QString() : voucher.text("Code");
  if (Trim(code).isEmpty())
    return;
  OpenRecordset(session, {u"delete from TabWarrantInf where BillCode='{}'", code});
  OpenRecordset(session, {u"delete from TabWarrant where Code='{}'", code});
}

} // namespace Vouchers
