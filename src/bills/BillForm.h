#pragma once

#include "bills/BillList.h"
#include "bills/BillTraits.h"
#include "bills/LineGrid.h"
#include "pickers/AccountReceiver.h"
#include "screen/Controls.h"
#include "session/OperateRight.h"
#include "session/Screen.h"
#include "vouchers/VoucherBill.h"

#include <memory>

// The shape that the bill screens share: one bill at a time, with a header, lines, a total, an audit
// mark and a state. A bill is one row of a header table and its rows in a line table, and is written
// anew at every save; there is no transaction, and a statement that fails lets the next one run.
//
// What a form has of its own stands in its BillTraits and in the virtual steps below.
class BillForm : public Screen, public AccountReceiver, private LineGridHost {
  Q_OBJECT

public:
  BillForm(Session& session, const BillTraits& traits);
  ~BillForm() override;

  void FillBill(const QString& table, const QString& code) override;
  void frm_Initialize(bool keepScreen) override;
  // The account that `sql` selects goes to the current line.
  void Txt2ToMSH(const QString& sql) override { m_lines->Txt2ToMSH(sql); }

protected:
  // A check of FSave_Click: true to go on, false after it has shown its refusal.
  using SaveCheck = bool (BillForm::*)();

  void Form_Load() override;
  void settleAfterRunTimeError() override;

  // Steps that a form has of its own.
  // The checks of a save in their order, the numbering of a new bill among them.
  virtual QList<SaveCheck> saveChecks() const = 0;
  // The values of the header row and of one line's row, in the order of their tables' columns.
  virtual QStringList headerValues() const = 0;
  virtual QStringList lineValues(int row) const = 0;
  // The fields of a stored header row that only this form has.
  virtual void fillOwnFields(const Recordset& header) { Q_UNUSED(header) }
  virtual void clearOwnFields() {}
  // After the bill and its voucher are written.
  virtual void refreshAfterSave() {}
  // Where the operator begins to type a bill.
  virtual Control& firstField() { return *TxtSaleMan; }
  virtual void pickLineAccount(int column) override = 0;
  // What the rights call this bill.
  virtual QString rightFunction() const;

  // Checks of a save that several forms have.
  bool operatorMayEdit();
  bool dateIsOpen();
  bool totalIsNotZero();
  bool currencyIsGiven();
  bool hasLines();
  bool lineAccountsAreLeaves();
  bool numberNewBill();
  bool codeHasPrefix();
  bool codeIsGiven();
  bool voucherIsAllowed();

  // The rest of the controls, once the form has made those at the head of FrameProvide.
  void buildRest();

  bool mayDo(RightKind kind);
  QString billCode() const;
  QString dateText() const;
  Currency totalMoney() const;
  // A text in quotes, as it stands in SQL text: nothing in it is doubled or escaped.
  static QString quoted(const QString& text) { return "'" + text + "'"; }
  const BillTraits& traits() const { return m_traits; }
  // The bill's title; layouts, templates and images go by it.
  QString billName() const;
  // The kind of bill in the voucher settings.
  virtual QString voucherKind() const { return billName(); }
  Vouchers::VoucherBill voucherBill() const;

  // Menu and tool buttons.
  void NewBill();
  void FSave_Click();
  void FDelete_Click();
  void FSeeWarrent_Click();
  void FJXCAccount_Click();
  void ShowVoucher();
  void RequestAudit();
  void RequestUnAudit();
  void VoidBill();
  void BrowsePrevious();
  void BrowseNext();
  void ImgSaleMan_Click();
  void InsertLineRow() { m_lines->InsertLineRow(); }
  void DeleteLineRow() { m_lines->DeleteLineRow(); }
  void popUpPrintMenu() { MPrint->popUp(); }
  void FExit_Click() { close(); }
  virtual void ShowPartnerInfo() {}

  template <typename Kind> Kind* add(Control* container, const char* name, const QString& caption = {}, const QString& toolTip = {})
  {
    Kind* const control = new Kind(container, QString::fromLatin1(name));
    control->setCaption(caption);
    control->setToolTip(toolTip);
    return control;
  }

  // The controls that handlers speak to, under the names of the screen.
  Container* Pic = nullptr;
  Container* Toolbar1 = nullptr;
  Container* FrameProvide = nullptr;
  Container* FrameMoneyType = nullptr;
  Container* FrameTotal = nullptr;
  Container* LoadingPic = nullptr;
  Menu* File = nullptr;
  Menu* MPrint = nullptr;
  ToolButton* ToolPrint = nullptr;
  Label* LabBillName = nullptr;
  Label* LabState = nullptr;
  Label* LabAuditing = nullptr;
  Label* LabTotalMoney = nullptr;
  DatePicker* DTPDate = nullptr;
  TextBox* TxtDate = nullptr;
  TextBox* TxtBillCode = nullptr;
  TextBox* TxtSaleMan = nullptr;
  TextBox* TxtMemo = nullptr;
  TextBox* TxtOperator = nullptr;
  TextBox* TxtAuditing = nullptr;
  ComboBox* TxtMoneyName = nullptr;
  TextBox* TxtMoneyRate = nullptr;
  CheckBox* ChAutoAuditing = nullptr;
  CheckBox* ChAutoAdd = nullptr;
  Grid* MSH = nullptr;
  CellEditor* Text2 = nullptr;

  QString BillTable;
  bool IsSavedBill = false;
  std::unique_ptr<LineGrid> m_lines;

private:
  // Building (BillFormControls.cpp). The order is the order of Tab.
  void buildHeader();
  void buildMoneyType();
  void buildLines();
  void buildFooter();
  void buildToolbar();
  void buildFileMenu();
  void buildPrintMenu();

  // LineGridHost
  bool linesEditable() const override { return FrameProvide->isUsable(); }
  QStringList accountHeadings() const override;
  QString layoutKey() const override;

  void loadMoneyNames();
  void fillTemplateMenus();
  void refreshBillList();
  virtual QString billListClause() const { return {}; }
  void ClearBillFields();
  void SetBillEditable(bool on);
  void RefreshBillControls();
  void setBillThere(bool there);
  void fillHeader(const Recordset& header);
  void fillLines(const QString& table, const QString& code);
  void showState(const QString& state);
  void showAudit();
  bool isAudited() const;
  bool isVoided() const;

  void TxtMoneyName_Change();
  bool TxtMoneyRate_KeyPress(const Key& key);
  bool TxtSaleMan_KeyPress(const Key& key);

  // Writing (BillSave.cpp)
  void WriteBill();
  bool isStored();
  bool replaceStored();
  void insertRows();
  void markWritten();
  void setLoading(bool loading);

  // Life of a saved bill (BillLife.cpp)
  bool SetAuditState(bool on);
  bool auditIsRefused(bool on);
  void MarkBillVoided();
  bool isBeforeLastTurn();
  // Code of the bill's voucher, blank if it has none; nothing, after the refusal, if it is posted.
  std::optional<QString> unpostedVoucher();
  bool hasLineTable() const { return *m_traits.lineTable != 0; }
  QString lineTable() const;
  QString lineWhere() const;
  void browseTo(const std::optional<QString>& code);
  virtual void clearAfterDelete();

  const BillTraits& m_traits;
  BillList m_billList; // Adodc1
  bool m_wantVoucher = false;
};
