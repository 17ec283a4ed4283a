#include "bills/BillScreen.h"

#include "ledger/AccountingCalendar.h"
#include "pickers/TreePicker.h"
#include "platform/DateText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "settlement/WriteOff.h"
#include "vouchers/ShowVoucher.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

// The first field of a new bill.
Control& firstField(BillScreen& screen)
{
  return screen.partner ? screen.partner->TxtName : screen.transfer ? screen.transfer->outgoing.name : screen.staff.TxtSaleMan;
}

} // namespace

BillScreen::BillScreen(Session& ofSession, const BillTraits& traits)
    : Form(ofSession.desk, traits.kind.screen), session(ofSession), store(ofSession, traits.kind), draft(*this), Pic(this, "Pic"),
      LabBillName(&Pic, "LabBillName"), LabState(&Pic, "LabState"), LabAuditing(&Pic, "LabAuditing"), TxtBillCode(&Pic, "TxtBillCode"),
      DTPDate(&Pic, "DTPDate"), TxtDate(&Pic, "TxtDate"), currency(*this), FrameProvide(&Pic, "FrameProvide"),
      partner(traits.partner ? std::make_unique<PartnerArea>(*this) : nullptr),
      transfer(traits.hasTransfer ? std::make_unique<TransferArea>(*this) : nullptr), staff(*this),
      paid(traits.hasPaid ? std::make_unique<PaidArea>(*this) : nullptr), MSH(&Pic, "MSH"),
      lines(traits.lines ? std::make_unique<LineArea>(*this, *traits.lines) : nullptr),
      balance(traits.balanceSign != 0 ? std::make_unique<BalanceLabel>(*this, traits.balanceSign) : nullptr), footer(this, &Pic),
      menus(*this, traits)
{
  turnInto(traits);
  LabState.setVisible(false);
  LabAuditing.setVisible(false);
  TxtDate.setReadOnly(true);
  TxtDate.setTabStop(false);
  TxtBillCode.setEnabled(false);
  DTPDate.onKey = [this](const Key& key) { return moveOnAtEnter(DTPDate, key); };
  FrameProvide.setCaption(QString::fromUtf16(traits.headFrame));
  MSH.setVisible(traits.lines);
}

void BillScreen::turnInto(const BillTraits& traits)
{
  m_traits = &traits;
  store.setKind(traits.kind);
  BillTable = store.headerTable();
  setCaption(QString::fromUtf16(traits.formCaption));
  LabBillName.setCaption(QString::fromUtf16(traits.kind.name));
}

void BillScreen::Form_Load()
{
  DTPDate.setDate(session.params.OperateDate);
  footer.TxtOperator.setText(session.params.UserName);
  currency.load();
  if (!traits().isTurnedByBill)
    menus.fillTemplateMenus();
}

void BillScreen::frm_Initialize(bool keepScreen)
{
  BillTable = store.headerTable();
  refreshBillList();
  if (!keepScreen) {
    InitLineGrid();
    NewBill();
  }
  if (traits().isTurnedByBill)
    menus.fillTemplateMenus();
}

void BillScreen::refreshBillList()
{
  m_billList.setCodes(store.codesOfMonth(BillTable, DTPDate.date(), billListClause()));
}

void BillScreen::InitLineGrid()
{
  if (lines)
    lines->InitLineGrid();
}

void BillScreen::NewBill()
{
  draft.leave();
  const auto begins = qScopeGuard([this] { draft.begin(); });
  ClearBillFields();
  IsSavedBill = false;
  store.drop();
  SetBillEditable(true);
  menus.enablePrinting(false);
  setFocus(firstField(*this));
}

void BillScreen::takeBack(const Draft& typed)
{
  ClearBillFields();
  IsSavedBill = typed.isSaved;
  store.drop();
  if (!typed.code.isEmpty()) {
    BillTable = typed.table;
    store.takeBack({typed.table, typed.code}, typed.read);
  }
  draft.fill(typed);
  if (lines)
    lines->Text2.hide();
  if (IsSavedBill) {
    showAudit();
    showState(true);
    RefreshBillControls();
  } else {
    TxtBillCode.setText({});
    SetBillEditable(true);
    menus.enablePrinting(false);
  }
  setFocus(firstField(*this));
}

void BillScreen::ClearBillFields()
{
  TxtDate.setText({});
  TxtBillCode.setText({});
  if (lines)
    lines->LabTotalMoney.setCaption({});
  if (partner)
    partner->clear();
  if (balance)
    balance->clear();
  if (paid)
    paid->clear();
  if (transfer)
    transfer->clear();
  if (traits().newClosesEditor)
    lines->Text2.hide();
  staff.TxtMemo.setText({});
  staff.TxtSaleMan.setText({});
  InitLineGrid();
  for (Label* const label : {&LabState, &LabAuditing}) {
    label->setCaption({});
    label->setVisible(false);
  }
  footer.TxtOperator.setText(session.params.UserName);
  footer.TxtAuditing.setText({});
  currency.clear();
}

void BillScreen::SetBillEditable(bool on)
{
  static constexpr const char* Targets[] = {
      "TxtDate",     "DTPDate",       "FrameProvide",  "FrameTotal",   "FramePay",       "FrameMoneyType", "ToolSave", "ToolDelete",
      "ToolRedWord", "ToolInsertRow", "ToolDeleteRow", "ToolAuditing", "ToolUnAuditing", "FSave",          "FDelete",  "FRedWord"};
  for (const char* name : Targets)
    if (Control* const control = find(name))
      control->setEnabled(on);
  TxtBillCode.setEnabled(false);
  menus.enablePrinting(true);
}

void BillScreen::RefreshBillControls()
{
  const bool closed = ModFuntion::GetClosingGuard(session, DTPDate.date(), false);
  SetBillEditable(!closed && !isAudited() && !isVoided());
  if (!closed && isVoided()) {
    find("ToolDelete")->setEnabled(true);
    find("FDelete")->setEnabled(true);
  } else if (!closed && isAudited()) {
    find("ToolUnAuditing")->setEnabled(true);
  }
  if (lines)
    lines->Text2.hide();
}

void BillScreen::FillBill(const QString& table, const QString& code)
{
  draft.leave();
  const auto begins = qScopeGuard([this] { draft.begin(); });
  BillTable = table;
  InitLineGrid();
  TxtDate.setEnabled(false);
  TxtDate.setVisible(false);
  DTPDate.setVisible(true);
  IsSavedBill = true;
  const Recordset header = store.header({table, code});
  if (header.eof()) {
    desk().inform(u"没有原单！"_s);
    return;
  }
  // Nothing is stored until all of it is shown: a column that cannot be read stops the filling half-way.
  store.drop();
  showHeader(header);
  Recordset rows = store.lines({table, code});
  if (lines)
    lines->show(rows);
  store.take({table, header.trimmed("Code")}, header, rows);
  showAudit();
  showState(header.trimmed("State") == u"正常");
  RefreshBillControls();
}

void BillScreen::showHeader(const Recordset& header)
{
  const QString date = header.text("Datee");
  TxtDate.setText(date);
  if (const auto day = DateText::parse(date))
    DTPDate.setDate(*day);
  TxtBillCode.setText(header.text("Code"));
  footer.TxtOperator.setText(header.text("Operator"));
  staff.TxtMemo.setText(header.text("Remark"));
  staff.TxtSaleMan.setText(header.text("SaleMan"));
  currency.show(header);
  footer.TxtAuditing.setText(header.text("Auditing"));
  if (partner)
    partner->show(header);
  if (balance)
    balance->refresh();
  if (paid)
    paid->show(header);
  if (transfer)
    transfer->show(header);
}

void BillScreen::showAudit()
{
  LabAuditing.setCaption(isAudited() ? u"已审核"_s : u"未审核"_s);
  LabAuditing.setVisible(true);
}

void BillScreen::showState(bool isNormal)
{
  LabState.setCaption(isNormal ? u"正常"_s : u"作废"_s);
  LabState.setVisible(!isNormal);
}

bool BillScreen::isAudited() const
{
  return !Trim(footer.TxtAuditing.text()).isEmpty();
}

bool BillScreen::isVoided() const
{
  return LabState.isVisible() && Trim(LabState.caption()) == u"作废";
}

QString BillScreen::billName() const
{
  return Trim(LabBillName.caption());
}

QString BillScreen::billCode() const
{
  return Trim(TxtBillCode.text());
}

// The target decides, not the button: the picker changes it for a list of only cash or only bank accounts.
void BillScreen::takeAccount(const PickedNode& account)
{
  if (!paid)
    lines->takeAccount(account);
  else if (!paid->take(account) && account.TreeTarget == QStringView(traits().lines->accountPickerTarget))
    lines->takeAccount(account);
}

void BillScreen::openWriteOff()
{
  WriteOff::open(session, store.kind(),
                 {store.bill().code, lines->LabTotalMoney.caption(), partner->TxtCode.text(), partner->TxtName.text(), DTPDate.date()});
}

void BillScreen::FJXCAccount_Click()
{
  Vouchers::FJXCAccount_Click(session, voucherKind());
}

void BillScreen::onUnload()
{
  draft.keep();
  CloseConnection(session);
}
