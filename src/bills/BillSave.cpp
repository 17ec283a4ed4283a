#include "bills/BillScreen.h"
#include "ledger/AccountingCalendar.h"
#include "ledger/BillCode.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "vouchers/Voucher.h"
#include "vouchers/VoucherBill.h"
#include "vouchers/VoucherDecision.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

// Leaving an amount box formats its text, and so does a save.
void leaveAmount(const Form& form)
{
  if (const Control* const box = form.focused(); box && box->onFocusOut)
    box->onFocusOut();
}

} // namespace

// Saving a bill: the checks of its kind in their order, the questions, then what is written: the bill, its audit and its
// voucher as one transaction. The result of the write is deliberately ignored; a refused bill is not stored, so no
// voucher is touched.
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
  if (!WriteBill(bill, voucher))
    return setLoading(false);
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

// What the save stores, as one transaction; an edit asks before. A declined or refused bill leaves the stored one with its
// voucher, which is made again. False, after a message, if the save ends here.
bool BillScreen::WriteBill(BillRecord bill, Vouchers::VoucherDecision voucher)
{
  const bool replaces = store.replaces(bill);
  const bool isDeclined = replaces && !confirmsEdit();
  bool isWritten = false;
  std::optional<QString> auditor;
  const auto write = [&] {
    if (isClosedOrPosted(voucher))
      return false;
    drawNumberAgain(bill);
    isWritten = !isDeclined && store.save(bill, replaces);
    if (!isWritten && !isDeclined)
      desk().inform(QString::fromUtf16(traits().duplicateCode));
    if (isWritten && footer.ChAutoAuditing.isChecked())
      auditor = newAuditor(true);
    if (auditor)
      store.setAuditor(*auditor);
    if (voucher == Vouchers::VoucherDecision::Wanted)
      Vouchers::GenerateVoucher(session, voucherBill());
    else
      Vouchers::DeleteVoucher(session, store.bill().code);
    return true;
  };
  const auto committed = [&] {
    if (isWritten)
      draft.end(store.bill().code);
  };
  const auto show = [&] {
    if (isWritten)
      showWritten(auditor);
  };
  try {
    if (!changeBill(write, committed, true))
      return false;
  } catch (const RunTimeError&) {
    show();
    throw;
  }
  show();
  return true;
}

// True, after the message, if the day was closed or the voucher posted since the checks.
bool BillScreen::isClosedOrPosted(Vouchers::VoucherDecision voucher)
{
  return ModFuntion::GetClosingGuard(session, DTPDate.date(), true) ||
         (voucher == Vouchers::VoucherDecision::Wanted && Vouchers::refusesPosted(session, voucherBill()));
}

// The number of a new bill was drawn by its checks, for the screen; another user may have taken it since. Within the
// transaction nobody draws beside this one.
void BillScreen::drawNumberAgain(BillRecord& bill)
{
  if (IsSavedBill)
    return;
  bill.code = ModFuntion::GetNextBillCode(session, QString::fromLatin1(store.kind().prefix), store.headerTable());
  TxtBillCode.setText(bill.code);
}

// Runs `writes` on the stored bill as one transaction, unless another user has changed the bill since it was read: then
// the user decides, and is asked again if it has changed once more. False if `writes` returned it, or did not run.
// `committed` runs as soon as a transaction is stored, before any box.
bool BillScreen::changeBill(const std::function<bool()>& writes, const std::function<void()>& committed, bool refusesVoided)
{
  for (;;) {
    using Change = BillStore::Change;
    Change change = Change::None;
    bool isDone = false;
    const auto write = [&] {
      change = store.changeByOthers();
      if (change != Change::None)
        return;
      const auto remember = qScopeGuard([this] { store.remember(); });
      isDone = writes();
    };
    store.inOneTransaction(write, committed);
    if (change == Change::None)
      return isDone;
    if (change == Change::Audited || (change == Change::Voided && refusesVoided)) {
      desk().inform(u"单据已被其他操作员审核或作废，请重新打开！"_s, [this] { return store.lifeInWords(); });
      return false;
    }
    if (!desk().confirmDestruction(u"单据已被其他操作员修改，仍要继续吗？"_s, Desk::Icon::Question, [this] { return store.lifeInWords(); }))
      return false;
    store.acceptChange();
  }
}

bool BillScreen::confirmsEdit()
{
  if (desk().confirm(u"如果确定修改则按是，否则按否退出重新执行保存！"_s, Desk::Icon::Information))
    return true;
  desk().inform(u"修改单据失败！"_s);
  return false;
}

void BillScreen::showWritten(const std::optional<QString>& auditor)
{
  IsSavedBill = true;
  footer.TxtOperator.setText(session.params.UserName);
  if (auditor)
    showAuditor(*auditor);
  showAudit();
  showState(true);
  menus.enablePrinting(true);
  TxtBillCode.setEnabled(false);
  TxtDate.setEnabled(false);
}
