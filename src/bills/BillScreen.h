#pragma once

#include "bills/BalanceLabel.h"
#include "bills/BillFooter.h"
#include "bills/BillList.h"
#include "bills/BillMenus.h"
#include "bills/BillTraits.h"
#include "bills/CurrencyArea.h"
#include "bills/DraftArea.h"
#include "bills/LineArea.h"
#include "bills/PaidArea.h"
#include "bills/PartnerArea.h"
#include "bills/StaffArea.h"
#include "bills/TransferArea.h"
#include "billstore/BillStore.h"
#include "screen/Form.h"
#include "session/OperateRight.h"
#include "session/Session.h"
#include "startup/Screen.h"
#include "vouchers/VoucherBill.h"
#include "vouchers/VoucherDecision.h"

// The screen of one bill at a time: a head, the areas that its BillTraits name, a footer, menus. It turns what is
// typed into a BillRecord, and the BillStore stores the bill. Its members are in tab order.
class BillScreen : public Form, public Screen {
  Q_OBJECT

public:
  BillScreen(Session& ofSession, const BillTraits& traits);

  Form& form() final { return *this; }
  void Form_Load() override;
  void FillBill(const QString& table, const QString& code) override;
  void frm_Initialize(bool keepScreen) override;
  void hideWriteOff() override { find("ToolHX")->setVisible(false); }

  // Menu items and buttons: BillSave.cpp and BillLife.cpp.
  void NewBill();
  void FSave_Click();
  void FDelete_Click();
  void RequestAudit() { setAudit(true); }
  void RequestUnAudit() { setAudit(false); }
  void VoidBill();
  void BrowsePrevious() { browseTo(m_billList.previous()); }
  void BrowseNext() { browseTo(m_billList.next()); }
  void openWriteOff();
  virtual void FJXCAccount_Click();
  // Receives the choice of an account picker.
  void takeAccount(const PickedNode& account);
  // Shows a bill that was typed and not saved.
  void takeBack(const Draft& typed);
  void keepTyped() override { draft.keep(); }

  const BillTraits& traits() const { return *m_traits; }
  // The bill's title; also the name of layouts and templates.
  QString billName() const;
  // The kind of bill in the voucher settings, and in the names of its images.
  QString voucherKind() const { return mode().value_or(billName()); }
  QString rightFunction() const { return mode().value_or(QString::fromUtf16(traits().kind.operation)); }
  bool mayDo(RightKind kind) const { return CheckOperateRight(session, session.params.UserName, rightFunction(), kind); }
  QString billCode() const;
  Currency totalMoney() const { return lines ? lines->total() : transfer->total(); }
  bool isAudited() const;
  bool isVoided() const;
  // How the partner is looked up, and the message if there is none.
  virtual bool partnerBringsSaleMan() const { return true; }
  virtual QString noPartnerMessage() const { return QString::fromUtf16(traits().partner->notChosen); }

  Session& session;
  BillStore store;
  bool IsSavedBill = false;

  DraftArea draft;
  Container Pic;
  Label LabBillName;
  Label LabState;
  Label LabAuditing;
  TextBox TxtBillCode;
  DatePicker DTPDate; // the date picked: what is saved
  TextBox TxtDate;    // the stored bill's date as it was read; empty while the bill is new
  CurrencyArea currency;
  Container FrameProvide;
  std::unique_ptr<PartnerArea> partner;
  std::unique_ptr<TransferArea> transfer;
  StaffArea staff;
  std::unique_ptr<PaidArea> paid;
  Grid MSH; // empty on a bill without lines
  std::unique_ptr<LineArea> lines;
  std::unique_ptr<BalanceLabel> balance;
  BillFooter footer;
  BillMenus menus;

protected:
  // The mode that determines rights, voucher settings and images of the bill shown, if its kind has modes.
  virtual std::optional<QString> mode() const { return std::nullopt; }
  // The column SustainType, for a kind that has it.
  virtual QString offsetType() const { return {}; }
  // The condition that restricts the month's list to the bills of this screen, beginning with " and ".
  virtual Statement billListClause() const { return {}; }
  virtual void InitLineGrid();
  virtual void showHeader(const Recordset& header);
  // Turns the screen into that of another kind of bill.
  void turnInto(const BillTraits& traits);
  void onUnload() override;
  void settleAfterRunTimeError() override { footer.LoadingPic.setVisible(false); }

private:
  void refreshBillList();
  void ClearBillFields();
  void SetBillEditable(bool on);
  void RefreshBillControls();
  BillRecord record() const;
  Vouchers::VoucherBill voucherBill() const;
  bool WriteBill(BillRecord bill, Vouchers::VoucherDecision voucher);
  bool isClosedOrPosted(Vouchers::VoucherDecision voucher);
  void drawNumberAgain(BillRecord& bill);
  bool changeBill(const std::function<bool()>& writes, const std::function<void()>& committed, bool refusesVoided);
  bool confirmsEdit();
  void showWritten(const std::optional<QString>& auditor);
  void setLoading(bool loading);
  void showState(bool isNormal);
  void showAudit();
  void setAudit(bool on);
  std::optional<QString> newAuditor(bool on);
  void showAuditor(const QString& auditor);
  bool voidIsRefused();
  bool confirmsEnd(const QString& question, BillStore::End end);
  void browseTo(const std::optional<QString>& code);

  const BillTraits* m_traits;
  QString BillTable;
  BillList m_billList; // Adodc1
};
