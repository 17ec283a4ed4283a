#include "bills/BillScreen.h"
#include "platform/Trim.h"
#include "vouchers/Voucher.h"
#include "vouchers/VoucherBill.h"
#include "vouchers/VoucherDecision.h"

using namespace Qt::StringLiterals;

namespace {

// Leaving an amount box formats its text, and so does a save.
void leaveAmount(const Form& form)
{
  if (const Control* const box = form.focused(); box && box->onFocusOut)
    box->onFocusOut();
}

} // namespace

// Saving a bill: the checks of its kind in their order, then the writing. The result of the write is deliberately
// ignored; a refused bill is not stored, so no voucher is touched.
void BillScreen::FSave_Click()
{
  leaveAmount(*this);
  for (const SaveCheck check : traits().checks)
    if (const auto refusal = check(*this)) {
      desk().ask(*refusal);
      return;
    }
  const Vouchers::VoucherDecision voucher = Vouchers::DecideVoucher(session, voucherBill());
  if (voucher == Vouchers::VoucherDecision::Refused)
    return;
  const BillRecord bill = record();

  setLoading(true);
  if (WriteBill(bill)) {
    if (footer.ChAutoAuditing.isChecked())
      RequestAudit();
    showWritten();
  }
  if (voucher == Vouchers::VoucherDecision::Wanted)
    Vouchers::GenerateVoucher(session, voucherBill());
  else
    Vouchers::DeleteVoucher(session, store.bill().code);
  if (balance)
    balance->refresh();
  setLoading(false);

  const auto tellSaved = [this] { desk().inform(u"保存成功！"_s); };
  if (!traits().tellsSavedLast)
    tellSaved();
  BillTable = store.headerTable();
  refreshBillList();
  if (footer.ChAutoAdd.isChecked())
    NewBill();
  if (traits().tellsSavedLast)
    tellSaved();
}

void BillScreen::setLoading(bool loading)
{
  desk().setBusy(loading);
  footer.LoadingPic.setVisible(loading);
}

BillRecord BillScreen::record() const
{
  BillRecord bill{.code = billCode(),
                  .date = DTPDate.date(),
                  .operatorName = Trim(session.params.UserName),
                  .saleMan = Trim(staff.TxtSaleMan.text()),
                  .remark = Trim(staff.TxtMemo.text()),
                  .type = QString::fromUtf16(traits().kind.operation),
                  .auditor = Trim(footer.TxtAuditing.text()),
                  .offsetType = offsetType()};
  currency.addTo(bill);
  if (partner)
    partner->addTo(bill);
  if (lines)
    lines->addTo(bill);
  if (paid)
    paid->addTo(bill);
  if (transfer)
    transfer->addTo(bill);
  return bill;
}

Vouchers::VoucherBill BillScreen::voucherBill() const
{
  return {.JXCTabName = voucherKind(),
          .headerTable = store.headerTable(),
          .code = store.bill().code,
          .TxtCode = partner ? partner->TxtCode.text() : QString(),
          .TxtMoneyName = currency.TxtMoneyName.text(),
          .TxtMoneyRate = currency.TxtMoneyRate.text(),
          .isTotalZero = totalMoney().isZero()};
}

// False, after the message, if nothing was written. An edit asks first.
bool BillScreen::WriteBill(const BillRecord& bill)
{
  const BillStore::Id stored = store.bill();
  const bool isEdit = stored.code == bill.code && stored.table.compare(store.headerTable(), Qt::CaseInsensitive) == 0;
  const bool replaces = isEdit && store.isStored(stored);
  if (replaces && !desk().confirm(u"如果确定修改则按是，否则按否退出重新执行保存！"_s, Desk::Icon::Information)) {
    desk().inform(u"修改单据失败！"_s);
    return false;
  }
  if (store.save(bill, replaces)) {
    IsSavedBill = true;
    footer.TxtOperator.setText(session.params.UserName);
    return true;
  }
  desk().inform(QString::fromUtf16(traits().duplicateCode));
  desk().setBusy(false);
  return false;
}

void BillScreen::showWritten()
{
  showAudit();
  showState(true);
  menus.enablePrinting(true);
  TxtBillCode.setEnabled(false);
  TxtDate.setEnabled(false);
}
