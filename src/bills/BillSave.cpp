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
// deletes and inserts, and whether WriteBill wrote anything is not asked behind it.

void BillForm::FSave_Click()
{
  for (const SaveCheck check : saveChecks())
    if (!(this->*check)())
      return;
  setLoading(true);
  WriteBill();
  if (m_wantVoucher)
    Vouchers::GenerateVoucher(session, voucherBill());
  else
    Vouchers::DeleteVoucher(session, billCode());
  refreshAfterSave();
  setLoading(false);
  if (!traits().tellsSavedLast)
    tellSaved();
  refreshBillList();
  if (ChAutoAdd->isChecked())
    NewBill();
  if (traits().tellsSavedLast)
    tellSaved();
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
  if (IsSavedBill)
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
  if (IsSavedBill && isStored() && !replaceStored())
    return;
  // A row stands here only if the fresh code of a new bill is taken already.
  if (isStored()) {
    session.desk.inform(QString::fromUtf16(traits().duplicateCode));
    session.desk.setBusy(false);
    return;
  }
  insertRows();
  markWritten();
}

bool BillForm::isStored()
{
  return !OpenRecordset(session, "select Code from " + headerTable() + " where Code='" + billCode() + "'").eof();
}

// Takes the stored bill away after asking; its write-off links go without a word.
bool BillForm::replaceStored()
{
  if (!session.desk.confirm("如果确定修改则按是，否则按否退出重新执行保存！", Desk::Icon::Information)) {
    session.desk.inform(QStringLiteral("修改单据失败！"));
    return false;
  }
  const QString code = billCode();
  OpenRecordset(session, "delete from " + headerTable() + "  where Code='" + code + "'");
  onLineRows("delete from ", "  where ", code);
  dropWriteOffs(code);
  return true;
}

void BillForm::onLineRows(const QString& verb, const QString& clause, const QString& code)
{
  if (const LineTraits* const lines = traits().lines)
    OpenRecordset(session, verb + lines->table + clause + lines->linkColumn + "='" + code + "'");
}

void BillForm::dropWriteOffs(const QString& code)
{
  if (traits().isWrittenOff)
    OpenRecordset(session, "delete from TabSFKHeXiao where  SFKBillCode='" + code + "'");
}

void BillForm::insertRows()
{
  OpenRecordset(session, "insert into  " + headerTable() + " values(" + headerValues().join(',') + ")");
  TxtOperator->setText(session.params.UserName);
  insertLines();
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
