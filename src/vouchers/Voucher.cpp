#include "vouchers/Voucher.h"

#include "ledger/AccountingCalendar.h"
#include "platform/DateText.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "vouchers/VoucherBill.h"
#include "vouchers/VoucherHeader.h"

using namespace Qt::StringLiterals;

namespace Vouchers {
namespace {

constexpr QStringView Posted = u"已登账";

SourceBill sourceOf(Session& session, const Recordset& row)
{
  const auto date = DateText::parse(row.text("Datee"));
  if (!date)
    throw RunTimeError(RunTimeError::TypeMismatch, u"类型不匹配：%1"_s.arg(row.text("Datee")));
  return {row.text("Code"), *date, ModFuntion::GetAccountingYear(session, *date), ModFuntion::GetAccountingMonth(session, *date),
          row.text("SumMoney")};
}

// True, after its message, if the bill's date is in the last closed accounting period or before it.
bool periodIsClosed(Session& session, const SourceBill& bill)
{
  const Recordset closed =
      OpenRecordset(session, {u"select top 1 DateeY,DateeM from TabWriteAccountant   where  State='已结账'   order by  {} desc,{} desc",
                              SqlDialect::integer(session, u"DateeY"), SqlDialect::integer(session, u"DateeM")});
  if (closed.eof())
    return false;
  const auto year = closed.field("DateeY").toInteger();
  const auto month = closed.field("DateeM").toInteger();
  if (bill.DateeY > year || (bill.DateeY == year && bill.DateeM > month))
    return false;
  session.desk.inform(u"最后一次会计期末结转为 %1 年 %2 月，本凭证录入日期有误！（不应小于最后一次结转会计期），"
                      u"将跳过自动生成会计凭证！"_s.arg(year)
                          .arg(month));
  return true;
}

// The first voucher of an accounting period inserts the period's row.
void openPeriod(Session& session, const SourceBill& bill)
{
  const QString year = QString::number(bill.DateeY);
  const QString month = QString::number(bill.DateeM);
  if (OpenRecordset(session, {u"select State from TabWriteAccountant where  DateeY='{}'  and DateeM='{}' ", year, month}).eof())
    Execute(session, {u"insert into TabWriteAccountant values( '{}','{}','未审核') ", year, month});
}

// False if the period is closed or no code is free: then nothing was written. The numbers are counted over the period
// that the calendar month names, while the check and the voucher use the accounting month.
bool writeVoucher(Session& session, const VoucherBill& bill, const Recordset& row)
{
  const SourceBill source = sourceOf(session, row);
  const QDate start = ModFuntion::GetPeriodStartDate(session, source.Datee.year(), source.Datee.month());
  const QDate end = ModFuntion::GetPeriodEndDate(session, source.Datee.year(), source.Datee.month());
  if (periodIsClosed(session, source))
    return false;
  const auto settings = drawVoucherSettings(session, bill.JXCTabName, start, end);
  if (!settings)
    return true;
  const auto entry = writeVoucherHeader(session, source, *settings);
  if (!entry)
    return false;
  WriteVoucherLines(session, bill, source, row, *entry);
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
  Execute(session, {u"update {} set Report='已生成会计凭证'  where Code='{}'", SqlName(bill.headerTable), row.text("Code")});
}

std::optional<StoredVoucher> voucherOf(Session& session, const QString& billCode)
{
  if (Trim(billCode).isEmpty())
    return std::nullopt;
  const Recordset rs = OpenRecordset(session, {u"select Code,State from TabWarrant where JXCBillCode='{}'", billCode});
  if (rs.eof())
    return std::nullopt;
  return StoredVoucher{rs.text("Code"), rs.trimmed("State") == Posted};
}

QString voucherInWords(Session& session, const QString& billCode)
{
  if (Trim(billCode).isEmpty())
    return {};
  const Recordset rs = LookUp(session, {u"select * from TabWarrant where JXCBillCode='{}'", billCode});
  if (rs.eof())
    return {};
  const QString number = rs.text("WarrantNum1");
  const QString words = u"凭证 "_s + rs.trimmed("Code") + u"，"_s + rs.trimmed("Datee") +
                        (number == u"0" ? QString() : u"，"_s + rs.trimmed("ZD") + u"字第 "_s + number + u" 号"_s);
  const QString poster = rs.trimmed("RecordAccountant");
  return rs.trimmed("State") == Posted ? words + u"，已登账"_s + (poster.isEmpty() ? QString() : u"（"_s + poster + u"）"_s) : words;
}

void deleteVoidedVoucher(Session& session, const QString& voucherCode)
{
  Execute(session, {u"delete from TabWarrant where Code ='{}'", Trim(voucherCode)});
  Execute(session, {u" delete from TabWarrantInf where BillCode='{}'", Trim(voucherCode)});
}

void DeleteVoucher(Session& session, const QString& billCode)
{
  const auto voucher = voucherOf(session, billCode);
  if (!voucher || Trim(voucher->code).isEmpty())
    return;
  Execute(session, {u"delete from TabWarrantInf where BillCode='{}'", voucher->code});
  Execute(session, {u"delete from TabWarrant where Code='{}'", voucher->code});
}

} // namespace Vouchers
