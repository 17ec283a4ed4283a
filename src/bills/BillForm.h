#pragma once

#include "bills/BillList.h"
#include "bills/BillTraits.h"
#include "database/Statement.h"
#include "platform/Currency.h"
#include "printing/BillTemplate.h"
#include "printing/ModSavePrintData.h"
#include "screen/Controls.h"
#include "session/OperateRight.h"
#include "session/Screen.h"
#include "vouchers/VoucherBill.h"

// The shape that the bill screens share: one bill at a time, with a header, a total, an audit mark
// and a state. A bill is one row of a header table, for most also its rows in a line table, and is
// written anew at every save; there is no transaction, and a statement that fails lets the next run.
//
// What a form has of its own stands in its BillTraits and in the virtual steps below. What only
// several forms have stands between: LineBillForm (lines), PartnerBillForm (a trading partner),
// FundBillForm (the balance with him).
class BillForm : public Screen {
  Q_OBJECT

public:
  BillForm(Session& session, const BillTraits& traits);

  void FillBill(const QString& table, const QString& code) override;
  void frm_Initialize(bool keepScreen) override;

protected:
  // A check of FSave_Click: true to go on, false after it has shown its refusal.
  using SaveCheck = bool (BillForm::*)();
  template <typename Bill> static SaveCheck step(bool (Bill::*check)()) { return static_cast<SaveCheck>(check); }

  void Form_Load() override;
  void settleAfterRunTimeError() override;

  // Steps that a form has of its own.
  // The checks of a save in their order, the numbering of a new bill among them.
  virtual QList<SaveCheck> saveChecks() const = 0;
  // The values of the header row, in the order of the table's columns.
  virtual QList<Statement> headerValues() const = 0;
  virtual Currency totalMoney() const = 0;
  // The fields of a stored header row that only this form has.
  virtual void fillOwnFields(const Recordset& header) = 0;
  virtual void clearOwnFields() = 0;
  // Where the operator begins to type a bill.
  virtual Control& firstField() = 0;
  // The lines: shown from the stored rows, written, emptied.
  virtual void InitLineGrid() {}
  virtual void fillLines(const QString& table, const QString& code)
  {
    Q_UNUSED(table)
    Q_UNUSED(code)
  }
  virtual void insertLines() {}
  virtual void closeCellEditor() {}
  // What is printed below the head: the grid, or nothing.
  virtual ModSavePrintData::PrintGrid printedGrid() const = 0;
  // After the bill and its voucher are written.
  virtual void refreshAfterSave() {}
  // The condition that keeps the month's list to the bills of this screen, led by " and ".
  virtual Statement billListClause() const { return {}; }
  // What the rights call this bill.
  virtual QString rightFunction() const { return QString::fromUtf16(traits().rightFunction); }
  // The kind of bill in the voucher settings, and in the names of its images.
  virtual QString voucherKind() const { return billName(); }
  virtual void FJXCAccount_Click();
  virtual void ShowPartnerInfo() {}
  virtual void openWriteOff() {}
  void openImages();

  // Checks of a save that several forms have.
  bool operatorMayEdit() { return mayDo(RightKind::Edit); }
  bool dateIsOpen();
  bool totalIsNotZero();
  bool currencyIsGiven();
  // Throws RunTimeError if an amount is too large to be stored.
  virtual bool amountsFit() { return true; }
  bool numberNewBill();
  bool codeHasPrefix();
  bool codeIsGiven();
  bool voucherIsAllowed();
  // Looks an account up by its code box, or by its name box if that is blank, and rewrites both. False,
  // after the refusal, if the chart has no such leaf.
  bool confirmAccount(TextBox& code, TextBox& name, const QString& refusal);

  // Building (BillFormControls.cpp), called by the form in the order of Tab; the form's own fields
  // come between.
  void buildSaleManAndMemo();
  void buildFooter();
  // A text box in which Enter moves on.
  TextBox* addEntry(Control* container, const char* name);
  // The same for an amount: plain digits while it is typed, formatted when it is left.
  TextBox* addAmount(Control* container, const char* name);
  ImageButton* addPickButton(Control* container, const char* name, std::function<void()> pick);

  // Loads what Form_Load loads but the template menus.
  void loadHeader();
  void fillTemplateMenus();
  // Makes the form the screen of another bill.
  void turnInto(const BillTraits& traits);

  bool mayDo(RightKind kind);
  void PrintHandOff(const QString& printType);
  void PrintBill_Excel(const QString& templateName, BillTemplate::Finish finish);
  void FExcle_PT_Click();
  void MPrintSet_Excel_Click();
  QString billCode() const;
  QString dateText() const;
  const BillTraits& traits() const { return *m_traits; }
  // The trimmed text of a box as a value of a row.
  static Statement textOf(const TextBox& box);
  // Columns that end every header row and every line row: currency, rate, auditor.
  QList<Statement> closingValues() const;
  // The bill's title; layouts and templates go by it.
  QString billName() const;
  Vouchers::VoucherBill voucherBill() const;

  // Menu and tool buttons.
  void NewBill();
  void FSave_Click();
  void FDelete_Click();
  void FSeeWarrent_Click();
  void ShowVoucher();
  void RequestAudit();
  void RequestUnAudit();
  void VoidBill();
  void BrowsePrevious();
  void BrowseNext();
  void ImgSaleMan_Click();
  virtual void InsertLineRow() {}
  virtual void DeleteLineRow() {}
  virtual void FMSHFormat_Click() {}
  void MPDirect_PT_Click() { PrintHandOff("直接打印"); }
  void MPPreview_PT_Click() { PrintHandOff("打印预览"); }
  void MPrintSet_PT_Click() { PrintHandOff("打印设置"); }
  void FDeleteMSHFormat_Click();
  void popUpPrintMenu() { MPrint->popUp(); }
  void FExit_Click() { close(); }

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
  Container* LoadingPic = nullptr;
  Menu* File = nullptr;
  Menu* MPrint = nullptr;
  ToolButton* ToolPrint = nullptr;
  Label* LabBillName = nullptr;
  Label* LabState = nullptr;
  Label* LabAuditing = nullptr;
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

  QString BillTable;
  bool IsSavedBill = false;

  // The bill that this screen loaded or saved last. Audit, void, delete, voucher, write-off, images and prints are
  // about it and nothing else; its code is empty while the bill shown is not stored, whatever TxtBillCode shows.
  struct StoredBill {
    QString table;
    QString code;
  };
  const StoredBill& storedBill() const { return m_stored; }

private:
  // What a button or menu item is there for; a bill without it does without them.
  enum class Feature { None, Lines, Partner, WriteOff };
  bool has(Feature feature) const;
  void buildHeader();
  void buildMoneyType();
  void buildToolbar();
  void buildFileMenu();
  void buildPrintMenu();

  void loadMoneyNames();
  void refreshBillList();
  void ClearBillFields();
  void SetBillEditable(bool on);
  void RefreshBillControls();
  void fillHeader(const Recordset& header);
  void showState(const QString& state);
  void showAudit();
  bool isAudited() const;
  bool isVoided() const;

  bool moveOn(const Key& key);
  void TxtMoneyName_Change();
  bool TxtMoneyRate_KeyPress(const Key& key);
  bool TxtSaleMan_KeyPress(const Key& key);

  // Writing (BillSave.cpp)
  void WriteBill();
  bool isInTable(const StoredBill& bill);
  bool replaceStored();
  bool insertRows();
  void deleteStrayLines();
  void leaveAmount();
  void markWritten();
  void setLoading(bool loading);
  void tellSaved() { session.desk.inform(QStringLiteral("保存成功！")); }

  // Life of a saved bill (BillLife.cpp)
  bool SetAuditState(bool on);
  bool auditIsRefused(bool on);
  void MarkBillVoided();
  bool isBeforeLastTurn();
  // Code of the bill's voucher, blank if it has none; nothing, after the refusal, if it is posted.
  std::optional<QString> unpostedVoucher();
  QString headerTable() const { return QString::fromLatin1(traits().headerTable); }
  // The bill as a save stores it: in the form's own table, under the code shown.
  StoredBill ownBill() const { return {headerTable(), billCode()}; }
  // The line table that belongs to a header table; nothing for a bill without lines.
  std::optional<SqlName> lineTableOf(const QString& table) const;
  // Deletes the rows of a bill in the line table of a header table, if it has one.
  void deleteLines(const StoredBill& bill);
  void dropWriteOffs(const QString& code);
  void browseTo(const std::optional<QString>& code);
  void clearAfterDelete();
  void addTemplateMenu(Control* menu, const char* name, BillTemplate::Finish finish);
  QStringList printLines(std::span<const PrintLine> lines) const;
  QString printedText(const PrintLine& line) const;
  QList<BillTemplate::Placeholder> placeholders() const;
  QString placeholderValue(const TemplateWord& word) const;
  QString queriedText(const Statement& statement) const;
  QString capitals(const QString& amount) const;
  QString totalPaid() const;

  const BillTraits* m_traits;
  StoredBill m_stored;
  BillList m_billList; // Adodc1
  bool m_wantVoucher = false;
};
