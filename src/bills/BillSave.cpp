#include "bills/BillForm.h"

#include "ledger/AccountingCalendar.h"
#include "ledger/BillCode.h"
#include "ledger/MasterData.h"
#include "ledger/Money.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "vouchers/Voucher.h"
#include "vouchers/VoucherDecision.h"

using namespace ModFuntion;

// Saving a bill: the checks in the form's order, then the writing. A bill is never updated: an edit
// deletes and inserts, and the result of WriteBill is deliberately ignored. A bill that WriteBill refused is not
// stored, so that no voucher is touched after it.

void BillForm::FSave_Click()
{
  leaveAmount();
  for (const SaveCheck check : saveChecks())
    if (!(this->*check)())
      return;
  setLoading(true);
  WriteBill();
  if (m_wantVoucher)
    Vouchers::GenerateVoucher(session, voucherBill());
  else
    Vouchers::DeleteVoucher(session, m_stored.code);
  refreshAfterSave();
  setLoading(false);
  if (!traits().tellsSavedLast)
    tellSaved();
  BillTable = headerTable();
  refreshBillList();
  if (ChAutoAdd->isChecked())
    NewBill();
  if (traits().tellsSavedLast)
    tellSaved();
}

// What leaving an amount box does to its text is done before a save, too.
void BillForm::leaveAmount()
{
  if (const Control* const box = focused(); box && box->onFocusOut)
    box->onFocusOut();
}

void BillForm::setLoading(bool loading)
{
  session.desk.setBusy(loading);
  LoadingPic->setVisible(loading);
}

bool BillForm::dateIsOpen()
{
  return !GetClosingGuard(session, DTPDate->date(), true);
}

bool BillForm::totalIsNotZero()
{
  if (!totalMoney().isZero())
    return true;
  session.desk.inform(QStringLiteral("合计金额为零值，请检查单据录入是否正确(如果属正负抵消请分作二次录入)！"));
  return false;
}

bool BillForm::currencyIsGiven()
{
  if (!session.params.IsLotMoney)
    return true;
  QString refusal;
  if (Trim(TxtMoneyName->text()).isEmpty())
    refusal = "请选择币种！";
  else if (NumberText::numericPrefix(TxtMoneyRate->text()) == 0)
    refusal = "汇率不能为0，如果是本位币，则汇率填写1";
  if (refusal.isEmpty())
    return true;
  session.desk.ask({refusal, Desk::Icon::Information, Desk::Buttons::OkCancel});
  return false;
}

bool BillForm::confirmAccount(TextBox& code, TextBox& name, const QString& refusal)
{
  const QString typed = Trim(code.text());
  const auto account = typed.isEmpty() ? CheckLeafRecord(session, Trim(name.text()), "TabAccountantType", "Name")
                                       : CheckLeafRecord(session, typed, "TabAccountantType", "Code");
  if (!account) {
    session.desk.inform(refusal);
    return false;
  }
  code.setText(account->Code);
  name.setText(account->Name);
  return true;
}

bool BillForm::numberNewBill()
{
  // A saved bill keeps its code. So does one whose header was refused, unless a colleague has taken the code since;
  // a screen without a code gets none here.
  if (IsSavedBill && (!m_stored.code.isEmpty() || billCode().isEmpty() || !isInTable(ownBill())))
    return true;
  TxtDate->setText(dateText());
  TxtBillCode->setText(GetNextBillCode(session, traits().prefix, headerTable()));
  return true;
}

bool BillForm::codeHasPrefix()
{
  const QString prefix = QString::fromLatin1(traits().prefix);
  if (billCode().startsWith(prefix))
    return true;
  session.desk.inform("单据编号前三位必须为 " + prefix + " ！");
  return false;
}

bool BillForm::codeIsGiven()
{
  if (!billCode().isEmpty())
    return true;
  session.desk.inform(QStringLiteral("单据编号不能为空！"));
  return false;
}

bool BillForm::voucherIsAllowed()
{
  const Vouchers::VoucherDecision decision = Vouchers::DecideVoucher(session, voucherBill());
  m_wantVoucher = decision == Vouchers::VoucherDecision::Wanted;
  return decision != Vouchers::VoucherDecision::Refused;
}

void BillForm::WriteBill()
{
  const bool isEdit = m_stored.code == billCode() && m_stored.table.compare(headerTable(), Qt::CaseInsensitive) == 0;
  if (isEdit && isInTable(m_stored) && !replaceStored())
    return;
  // A row is found only if the fresh code of a new bill is taken already.
  if (isInTable(ownBill()) || !insertRows()) {
    session.desk.inform(QString::fromUtf16(traits().duplicateCode));
    session.desk.setBusy(false);
    return;
  }
  markWritten();
}

bool BillForm::isInTable(const StoredBill& bill)
{
  return !OpenRecordset(session, {u"select Code from {} where Code='{}'", SqlName(bill.table), bill.code}).eof();
}

// Deletes the stored bill after asking; its write-off links are deleted silently.
bool BillForm::replaceStored()
{
  if (!session.desk.confirm("如果确定修改则按是，否则按否退出重新执行保存！", Desk::Icon::Information)) {
    session.desk.inform(QStringLiteral("修改单据失败！"));
    return false;
  }
  OpenRecordset(session, {u"delete from {}  where Code='{}'", SqlName(m_stored.table), m_stored.code});
  deleteLines(m_stored);
  dropWriteOffs(m_stored.code);
  return true;
}

std::optional<SqlName> BillForm::lineTableOf(const QString& table) const
{
  if (!traits().lines)
    return std::nullopt;
  return SqlName(table + "Inf");
}

void BillForm::deleteLines(const StoredBill& bill)
{
  if (const auto lines = lineTableOf(bill.table))
    OpenRecordset(session, {u"delete from {}  where {}='{}'", *lines, SqlName(traits().lines->linkColumn), bill.code});
}

void BillForm::dropWriteOffs(const QString& code)
{
  if (traits().isWrittenOff)
    OpenRecordset(session, {u"delete from TabSFKHeXiao where  SFKBillCode='{}'", code});
}

// False if a colleague has taken the code between the look at it and the insert: then the lines are his.
bool BillForm::insertRows()
{
  m_stored = {};
  deleteStrayLines();
  const bool isInserted =
      Execute(session, {u"insert into  {} values({})", SqlName(headerTable()), Statement::joined(headerValues(), u",")});
  // If the connection was lost, only the row itself says whether it arrived.
  const bool wasLost = !session.connection.isOpen();
  const bool isThere = isInserted || isInTable(ownBill());
  if (isThere && !isInserted && !wasLost)
    return false;
  if (isThere)
    m_stored = ownBill();
  TxtOperator->setText(session.params.UserName);
  insertLines();
  return true;
}

// Lines that a refused header has left under this code would become this bill's. In one statement with the look
// whether the code has a header, so that a colleague's lines are never met.
void BillForm::deleteStrayLines()
{
  if (const auto lines = lineTableOf(headerTable()))
    OpenRecordset(session, {u"delete from {}  where {}='{}' and not exists (select Code from {} where Code='{}')", *lines,
                            SqlName(traits().lines->linkColumn), billCode(), SqlName(headerTable()), billCode()});
}

void BillForm::markWritten()
{
  IsSavedBill = true;
  if (ChAutoAuditing->isChecked())
    RequestAudit();
  showAudit();
  showState(QStringLiteral("正常"));
  MPrint->setEnabled(true);
  ToolPrint->setEnabled(true);
  TxtBillCode->setEnabled(false);
  TxtDate->setEnabled(false);
}
