#include "bills/BillForm.h"

#include "ledger/AccountingCalendar.h"
#include "ledger/FieldHelp.h"
#include "ledger/Money.h"
#include "pickers/CodePicker.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"

using namespace ModFuntion;

BillForm::BillForm(Session& ofSession, const BillTraits& traits) : Screen(ofSession, QString::fromLatin1(traits.form)), m_traits(&traits)
{
  buildHeader();
  turnInto(traits);
}

void BillForm::turnInto(const BillTraits& traits)
{
  m_traits = &traits;
  BillTable = headerTable();
  setCaption(QString::fromUtf16(traits.formCaption));
  LabBillName->setCaption(QString::fromUtf16(traits.billName));
}

void BillForm::Form_Load()
{
  loadHeader();
  fillTemplateMenus();
}

void BillForm::loadHeader()
{
  DTPDate->setDate(session.operateDate());
  TxtOperator->setText(session.params.UserName);
  loadMoneyNames();
  FrameMoneyType->setVisible(session.params.IsLotMoney);
  if (!session.params.IsLotMoney)
    TxtMoneyName->setText({});
}

void BillForm::loadMoneyNames()
{
  QStringList names;
  for (Recordset rs = OpenRecordset(session, {u"select Name from TabMoneyType order by  IsBWB desc "}); !rs.eof(); rs.moveNext())
    names.append(rs.trimmed("Name"));
  TxtMoneyName->setItems(names);
  if (names.isEmpty())
    return;
  TxtMoneyName->setIndex(0);
  TxtMoneyName_Change();
}

void BillForm::frm_Initialize(bool keepScreen)
{
  BillTable = headerTable();
  refreshBillList();
  if (keepScreen)
    return;
  InitLineGrid();
  NewBill();
}

void BillForm::refreshBillList()
{
  const QString year = QString::number(DTPDate->date().year());
  const QString month = QString::number(DTPDate->date().month());
  const QString first = year + "-" + month + "-1";
  const QString last = year + "-" + month + "-" + LastDayOfMonth(session, month, year);
  Recordset rs =
      OpenRecordset(session, {u"select  Code from {}    where Datee>={}    and  Datee<={}{}  order by Datee, Code ", SqlName(BillTable),
                              SqlDialect::date(session, first), SqlDialect::date(session, last), billListClause()});
  QStringList codes;
  for (; rs.isOpen() && !rs.eof(); rs.moveNext())
    codes.append(rs.trimmed("Code"));
  m_billList.setCodes(codes);
}

void BillForm::NewBill()
{
  ClearBillFields();
  IsSavedBill = false;
  m_stored = {};
  SetBillEditable(true);
  ToolPrint->setEnabled(false);
  MPrint->setEnabled(false);
  setFocus(firstField());
}

void BillForm::ClearBillFields()
{
  TxtDate->setText({});
  TxtBillCode->setText({});
  clearOwnFields();
  TxtMemo->setText({});
  TxtSaleMan->setText({});
  InitLineGrid();
  for (Label* label : {LabState, LabAuditing}) {
    label->setCaption({});
    label->setVisible(false);
  }
  TxtOperator->setText(session.params.UserName);
  TxtAuditing->setText({});
  // Without currencies a bill has none, whatever the bill viewed before had.
  if (!session.params.IsLotMoney) {
    TxtMoneyName->setText({});
    TxtMoneyRate->setText("1");
  }
}

void BillForm::SetBillEditable(bool on)
{
  static constexpr const char* Targets[] = {"TxtDate",        "DTPDate",      "FrameProvide",   "FrameTotal",  "FramePay",
                                            "FrameMoneyType", "ToolSave",     "ToolDelete",     "ToolRedWord", "ToolInsertRow",
                                            "ToolDeleteRow",  "ToolAuditing", "ToolUnAuditing", "FSave",       "FDelete"};
  for (const char* name : Targets)
    if (Control* const control = find(QString::fromLatin1(name)))
      control->setEnabled(on);
  TxtBillCode->setEnabled(false);
  ToolPrint->setEnabled(true);
  MPrint->setEnabled(true);
}

void BillForm::RefreshBillControls()
{
  const bool closed = GetClosingGuard(session, DTPDate->date(), false);
  SetBillEditable(!closed && !isAudited() && !isVoided());
  if (!closed && isVoided()) {
    find("ToolDelete")->setEnabled(true);
    find("FDelete")->setEnabled(true);
  } else if (!closed && isAudited()) {
    find("ToolUnAuditing")->setEnabled(true);
  }
  closeCellEditor();
}

void BillForm::FillBill(const QString& table, const QString& code)
{
  BillTable = table;
  InitLineGrid();
  TxtDate->setEnabled(false);
  TxtDate->setVisible(false);
  DTPDate->setVisible(true);
  IsSavedBill = true;
  const Recordset header = OpenRecordset(session, {u"select * from {} where Code='{}'", SqlName(table), code});
  if (header.eof()) {
    session.desk.inform(QStringLiteral("没有原单！"));
    return;
  }
  // Nothing is stored until all of it is shown: a column that cannot be read ends the filling half-way.
  m_stored = {};
  fillHeader(header);
  fillLines(table, code);
  m_stored = {table, header.trimmed("Code")};
  showAudit();
  showState(header.trimmed("State"));
  RefreshBillControls();
}

void BillForm::fillHeader(const Recordset& header)
{
  const QString date = header.text("Datee");
  TxtDate->setText(date);
  if (const auto day = DateText::parse(date))
    DTPDate->setDate(*day);
  TxtBillCode->setText(header.text("Code"));
  TxtOperator->setText(header.text("Operator"));
  TxtMemo->setText(header.text("Remark"));
  TxtSaleMan->setText(header.text("SaleMan"));
  TxtMoneyName->setText(header.text("MoneyName"));
  TxtMoneyRate->setText(NumberText::ofSingle(float(header.number("MoneyRate"))));
  TxtAuditing->setText(header.text("Auditing"));
  fillOwnFields(header);
}

void BillForm::showAudit()
{
  LabAuditing->setCaption(isAudited() ? "已审核" : "未审核");
  LabAuditing->setVisible(true);
}

void BillForm::showState(const QString& state)
{
  const bool normal = state == u"正常";
  LabState->setCaption(normal ? "正常" : "作废");
  LabState->setVisible(!normal);
}

bool BillForm::isAudited() const
{
  return !Trim(TxtAuditing->text()).isEmpty();
}

bool BillForm::isVoided() const
{
  return LabState->isVisible() && Trim(LabState->caption()) == u"作废";
}

void BillForm::settleAfterRunTimeError()
{
  LoadingPic->setVisible(false);
}

QString BillForm::billName() const
{
  return Trim(LabBillName->caption());
}

QString BillForm::billCode() const
{
  return Trim(TxtBillCode->text());
}

QString BillForm::dateText() const
{
  return DateText::shortForm(DTPDate->date());
}

Statement BillForm::textOf(const TextBox& box)
{
  return sqlText(Trim(box.text()));
}

QList<Statement> BillForm::closingValues() const
{
  const QString rate = NumberText::ofDouble(NumberText::numericPrefix(TxtMoneyRate->text()));
  return {textOf(*TxtMoneyName), sqlNumber(SqlNumber(rate)), textOf(*TxtAuditing)};
}

bool BillForm::mayDo(RightKind kind)
{
  return CheckOperateRight(session, session.params.UserName, rightFunction(), kind);
}

Vouchers::VoucherBill BillForm::voucherBill() const
{
  Vouchers::VoucherBill bill{voucherKind(), headerTable(), m_stored.code};
  if (const TextBox* const partner = find<TextBox>("TxtCode"))
    bill.TxtCode = partner->text();
  bill.TxtMoneyName = TxtMoneyName->text();
  bill.TxtMoneyRate = TxtMoneyRate->text();
  bill.isTotalZero = totalMoney().isZero();
  return bill;
}

void BillForm::TxtMoneyName_Change()
{
  TxtMoneyRate->setText(NumberText::ofSingle(GetMoneyRate(session, TxtMoneyName->text())));
}

bool BillForm::TxtMoneyRate_KeyPress(const Key& key)
{
  if (key.code != Key::Enter)
    return !FilterKeyPress(session.desk, key, ".0123456789", true);
  focusNext();
  return true;
}

bool BillForm::TxtSaleMan_KeyPress(const Key& key)
{
  // It is the maker's field that is tested, not the one typed in.
  if (key.code != Key::Enter || Trim(TxtOperator->text()).isEmpty())
    return false;
  const QString text = Trim(TxtSaleMan->text());
  const Recordset rs =
      OpenRecordset(session, {u"select Code,Name from TabStuff  where Code like '{}%'  or Name like '{}%'   order by code", text, text});
  if (rs.recordCount() == 1) {
    TxtSaleMan->setText(rs.text("Name"));
    focusNext();
  } else {
    TxtSaleMan->setText({});
    ImgSaleMan_Click();
  }
  return true;
}

void BillForm::ImgSaleMan_Click()
{
  const CodePickerCall call{Statement(u"select Code,Name from TabStuff order by code"), "TabStuff",
                            QString::fromUtf16(traits().saleManPickerTitle), traits().pickersOfferAdd};
  if (const auto picked = CodePicker::pick(session, call))
    TxtSaleMan->setText(picked->name);
}
