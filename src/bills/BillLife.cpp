#include "bills/BillForm.h"

#include "ledger/AccountingCalendar.h"
#include "platform/DateText.h"
#include "platform/Trim.h"
#include "printing/GridLayout.h"
#include "printing/ImageAttachments.h"
#include "session/ModuleADO.h"
#include "vouchers/ShowVoucher.h"
#include "vouchers/Voucher.h"

using namespace ModFuntion;

// What happens to a bill once it is saved: audit and its reversal, void, delete, browse. Audit is a
// name in every row of the bill; void is its state, and there is no way back from it.

void BillForm::RequestAudit()
{
  if (mayDo(RightKind::Auditing) && SetAuditState(true))
    RefreshBillControls();
}

void BillForm::RequestUnAudit()
{
  if (mayDo(RightKind::Auditing) && SetAuditState(false))
    RefreshBillControls();
}

bool BillForm::auditIsRefused(bool on)
{
  QString refusal;
  if (on)
    refusal = isAudited() ? "已审核单据，禁止重复审核！" : m_stored.code.isEmpty() ? "请先保存单据后再审核！" : "";
  else
    refusal = !isAudited() ? "未审核单据，禁止反审核！" : m_stored.code.isEmpty() ? "未保存单据，禁止反审核！" : "";
  if (!refusal.isEmpty())
    session.desk.inform(refusal);
  return !refusal.isEmpty();
}

bool BillForm::SetAuditState(bool on)
{
  if (auditIsRefused(on))
    return false;
  const QString auditor = on ? session.params.UserName : QString();
  OpenRecordset(session, {u"update {}  set Auditing='{}'  where Code='{}' ", SqlName(m_stored.table), auditor, m_stored.code});
  if (const auto lines = lineTableOf(m_stored.table))
    OpenRecordset(session,
                  {u"update {}  set Auditing='{}'  where {}='{}' ", *lines, auditor, SqlName(traits().lines->linkColumn), m_stored.code});
  TxtAuditing->setText(auditor);
  LabAuditing->setCaption(on ? "已审核" : "未审核");
  LabAuditing->setVisible(true);
  return true;
}

void BillForm::VoidBill()
{
  if (traits().asksRightAtVoid && !mayDo(RightKind::Edit))
    return;
  if (isBeforeLastTurn())
    return;
  const auto voucher = unpostedVoucher();
  if (!voucher || !session.desk.confirm("确定作废该单据吗？", Desk::Icon::Information))
    return;
  MarkBillVoided();
  if (voucher->isEmpty())
    return;
  OpenRecordset(session, {u"delete from TabWarrant where Code ='{}'", *voucher});
  OpenRecordset(session, {u" delete from TabWarrantInf where BillCode='{}'", *voucher});
}

// A void looks at the last carry-forward alone, not at the accounting close.
bool BillForm::isBeforeLastTurn()
{
  if (Trim(TxtDate->text()).isEmpty()) {
    session.desk.inform(QStringLiteral("本单据开单日期不详，系统禁止作废！"));
    return true;
  }
  const auto turn = LastClosing(session, "TabTurn");
  const auto date = DateText::parse(TxtDate->text());
  if (!turn || (date && *turn < *date))
    return false;
  session.desk.inform("最后一次结转日期为" + DateText::shortForm(*turn) + "，本单据开单位于最后一结转日期之前，系统禁止作废！");
  return true;
}

std::optional<QString> BillForm::unpostedVoucher()
{
  if (m_stored.code.isEmpty())
    return QString();
  const Recordset rs = OpenRecordset(session, {u"select Code,State from TabWarrant where JXCBillCode='{}'", m_stored.code});
  if (rs.eof())
    return QString();
  if (rs.trimmed("State") != u"已登账")
    return rs.trimmed("Code");
  session.desk.inform(QStringLiteral("该张单据已经登账，禁止作废！"));
  return std::nullopt;
}

void BillForm::MarkBillVoided()
{
  const StoredBill bill = m_stored;
  if (bill.code.isEmpty() || !isInTable(bill)) {
    session.desk.inform(QString::fromUtf16(traits().missingAtVoid));
    return;
  }
  OpenRecordset(session, {u"update  {} set State='作废' where Code='{}'", SqlName(bill.table), bill.code});
  if (const auto lines = lineTableOf(bill.table))
    OpenRecordset(session, {u"update {} set State='作废' where {}='{}' ", *lines, SqlName(traits().lines->linkColumn), bill.code});
  FillBill(bill.table, bill.code);
  session.desk.inform(QStringLiteral("作废成功！"));
}

void BillForm::FDelete_Click()
{
  if (!mayDo(RightKind::Delete) || !dateIsOpen())
    return;
  const StoredBill bill = m_stored;
  if (bill.code.isEmpty()) {
    session.desk.inform(QStringLiteral("单据编号不存在，禁止当前操作！"));
    return;
  }
  if (!session.desk.confirm("删除当前单据吗？", Desk::Icon::Information))
    return;
  Vouchers::DeleteVoucher(session, bill.code);
  dropWriteOffs(bill.code);
  deleteLines(bill);
  OpenRecordset(session, {u"delete from {} where  Code='{}'", SqlName(bill.table), bill.code});
  DeleteBillImages(session, bill.code, voucherKind());
  session.desk.inform(QStringLiteral("单据已删除！"));
  clearAfterDelete();
}

void BillForm::clearAfterDelete()
{
  m_stored = {};
  InitLineGrid();
  if (traits().blankAfterDelete.empty())
    return NewBill();
  // The screen stays that of a saved bill: the operator has to ask for a new one.
  for (const char* name : traits().blankAfterDelete)
    find<TextBox>(QString::fromLatin1(name))->setText({});
}

void BillForm::BrowsePrevious()
{
  browseTo(m_billList.previous());
}

void BillForm::BrowseNext()
{
  browseTo(m_billList.next());
}

void BillForm::browseTo(const std::optional<QString>& code)
{
  if (!code)
    return;
  FillBill(BillTable, Trim(*code));
  find("FBuild")->setVisible(true);
  find("ToolBuild")->setVisible(true);
}

void BillForm::ShowVoucher()
{
  Vouchers::ShowVoucher(session, m_stored.code);
}

void BillForm::FSeeWarrent_Click()
{
  Vouchers::FSeeWarrent_Click(session, m_stored.code);
}

void BillForm::FJXCAccount_Click()
{
  Vouchers::FJXCAccount_Click(session, voucherKind());
}

void BillForm::openImages()
{
  OpenBillImages(session, m_stored.code, voucherKind());
}

void BillForm::FDeleteMSHFormat_Click()
{
  GridLayout::FDeleteMSHFormat_Click(session, billName());
}
