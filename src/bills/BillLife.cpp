#include "bills/BillScreen.h"
#include "ledger/AccountingCalendar.h"
#include "platform/DateText.h"
#include "platform/Trim.h"
#include "vouchers/Voucher.h"

using namespace Qt::StringLiterals;

// What happens to a bill once it is saved: audit and its reversal, void, delete, browse. Audit is a name in every row
// of the bill; void is its state, and is irreversible.

namespace {

// True, after the message, if the stored bill's date is closed. A void checks only the last carry-forward, not the
// accounting close.
bool isBeforeLastTurn(const BillScreen& screen)
{
  if (Trim(screen.TxtDate.text()).isEmpty()) {
    screen.desk().inform(u"本单据开单日期不详，系统禁止作废！"_s);
    return true;
  }
  const auto turn = ModFuntion::LastClosing(screen.session, "TabTurn");
  const auto date = DateText::parse(screen.TxtDate.text());
  if (!turn || (date && *turn < *date))
    return false;
  screen.desk().inform(u"最后一次结转日期为"_s + DateText::shortForm(*turn) + u"，本单据开单位于最后一结转日期之前，系统禁止作废！"_s);
  return true;
}

} // namespace

void BillScreen::setAudit(bool on)
{
  const auto auditor = newAuditor(on);
  if (!auditor)
    return;
  const auto write = [&] {
    store.setAuditor(*auditor);
    return true;
  };
  if (changeBill(write, [] {}, true))
    showAuditor(*auditor);
}

// Who is to be the auditor: nobody after a reversal; nothing, after a message, if it is refused.
std::optional<QString> BillScreen::newAuditor(bool on)
{
  if (!mayDo(RightKind::Auditing))
    return std::nullopt;
  QString refusal;
  if (on)
    refusal = isAudited() ? u"已审核单据，禁止重复审核！"_s : store.hasBill() ? QString() : u"请先保存单据后再审核！"_s;
  else
    refusal = !isAudited() ? u"未审核单据，禁止反审核！"_s : store.hasBill() ? QString() : u"未保存单据，禁止反审核！"_s;
  if (!refusal.isEmpty()) {
    desk().inform(refusal);
    return std::nullopt;
  }
  return on ? session.params.UserName : QString();
}

void BillScreen::showAuditor(const QString& auditor)
{
  footer.TxtAuditing.setText(auditor);
  LabAuditing.setCaption(auditor.isEmpty() ? u"未审核"_s : u"已审核"_s);
  LabAuditing.setVisible(true);
  RefreshBillControls();
}

// The details say what goes with the bill.
bool BillScreen::confirmsEnd(const QString& question, BillStore::End end)
{
  return desk().confirmDestruction(question, Desk::Icon::Information, [this, end] { return store.companions(end, voucherKind()); });
}

void BillScreen::VoidBill()
{
  if (traits().asksRightAtVoid && !mayDo(RightKind::Edit))
    return;
  if (voidIsRefused() || !confirmsEnd(u"确定作废该单据吗？"_s, BillStore::End::Voided))
    return;
  const BillStore::Id bill = store.bill();
  bool isThere = false;
  const auto write = [&] {
    if (voidIsRefused())
      return false;
    isThere = store.hasBill() && store.isStored(bill);
    if (isThere)
      store.markVoid();
    else
      desk().inform(QString::fromUtf16(traits().missingAtVoid));
    if (const auto voucher = Vouchers::voucherOf(session, bill.code); voucher && !Trim(voucher->code).isEmpty())
      Vouchers::deleteVoidedVoucher(session, voucher->code);
    return true;
  };
  const auto committed = [&] {
    if (isThere)
      draft.end(bill.code);
  };
  if (!changeBill(write, committed, true) || !isThere)
    return;
  FillBill(bill.table, bill.code);
  desk().inform(u"作废成功！"_s);
}

// True, after the message, if the stored date is closed or the voucher posted.
bool BillScreen::voidIsRefused()
{
  if (isBeforeLastTurn(*this))
    return true;
  const auto voucher = Vouchers::voucherOf(session, store.bill().code);
  if (!voucher || !voucher->isPosted)
    return false;
  desk().inform(u"该张单据已经登账，禁止作废！"_s, [this, code = store.bill().code] { return Vouchers::voucherInWords(session, code); });
  return true;
}

void BillScreen::FDelete_Click()
{
  if (!mayDo(RightKind::Delete) || ModFuntion::GetClosingGuard(session, DTPDate.date(), true))
    return;
  if (!store.hasBill())
    return desk().inform(u"单据编号不存在，禁止当前操作！"_s);
  if (!confirmsEnd(u"删除当前单据吗？"_s, BillStore::End::Deleted))
    return;
  const QString code = store.bill().code;
  bool isDeleted = false;
  const auto write = [&] {
    if (ModFuntion::GetClosingGuard(session, DTPDate.date(), true))
      return false;
    store.remove(voucherKind());
    isDeleted = true;
    return true;
  };
  const auto committed = [&] {
    if (isDeleted)
      draft.end(code);
  };
  if (!changeBill(write, committed, false))
    return;
  desk().inform(u"单据已删除！"_s);
  InitLineGrid();
  // The screen still counts as that of a saved bill: the operator has to start a new one.
  for (const char* name : traits().emptyAfterDelete)
    find<TextBox>(name)->setText({});
  draft.begin();
  if (traits().emptyAfterDelete.empty())
    NewBill();
}

void BillScreen::browseTo(const std::optional<QString>& code)
{
  if (!code)
    return;
  FillBill(BillTable, Trim(*code));
  find("FBuild")->setVisible(true);
  find("ToolBuild")->setVisible(true);
}
