#include "bills/frmFeeElseIncome.h"

#include "ledger/Money.h"
#include "pickers/TreePicker.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"

using namespace ModFuntion;

frmFeeElseIncome::frmFeeElseIncome(Session& ofSession) : LineBillForm(ofSession, ExpenseTraits)
{
  buildSaleManAndMemo();
  FramePay = add<Container>(Pic, "FramePay", "资金信息");
  buildPayment(m_cash, {"TxtCash", "TxtCashAccouCode", "TxtCashAccouName", "ImgCashAccouName"});
  buildPayment(m_bank, {"TxtTransfer", "TxtTransferCode", "TxtTransferName", "ImgTransferName"});
  buildLines();
  buildFooter();
}

void frmFeeElseIncome::buildPayment(Payment& payment, const PaymentNames& names)
{
  payment.amount = addAmount(FramePay, names.amount);
  payment.code = addEntry(FramePay, names.code);
  payment.name = add<TextBox>(FramePay, names.name);
  payment.name->onKey = [this, &payment](const Key& key) { return nameKey(payment, key); };
  addPickButton(FramePay, names.pick, [this, &payment] { pickAccount(payment); });
}

void frmFeeElseIncome::Form_Load()
{
  if (Trim(session.params.OperateType) == u"其他收入")
    turnInto(OtherIncomeTraits);
  loadHeader();
}

// The table of a stored bill has turned the form by now, and with it the templates.
void frmFeeElseIncome::frm_Initialize(bool keepScreen)
{
  LineBillForm::frm_Initialize(keepScreen);
  fillTemplateMenus();
}

void frmFeeElseIncome::FillBill(const QString& table, const QString& code)
{
  for (const BillTraits* bill : {&ExpenseTraits, &OtherIncomeTraits})
    if (table == QLatin1String(bill->headerTable))
      turnInto(*bill);
  LineBillForm::FillBill(table, code);
}

QList<BillForm::SaveCheck> frmFeeElseIncome::saveChecks() const
{
  return {
      step(&frmFeeElseIncome::operatorMayEdit),
      step(&frmFeeElseIncome::dateIsOpen),
      step(&frmFeeElseIncome::amountsFit),
      step(&frmFeeElseIncome::hasLines),
      step(&frmFeeElseIncome::lineAccountsAreLeaves),
      step(&frmFeeElseIncome::cashAccountIsGiven),
      step(&frmFeeElseIncome::bankAccountIsGiven),
      step(&frmFeeElseIncome::currencyIsGiven),
      step(&frmFeeElseIncome::totalIsNotZero),
      step(&frmFeeElseIncome::amountsBalance),
      step(&frmFeeElseIncome::numberNewBill),
      step(&frmFeeElseIncome::newCodeHasPrefix),
      step(&frmFeeElseIncome::codeIsGiven),
      step(&frmFeeElseIncome::noLineIsNegative),
      step(&frmFeeElseIncome::voucherIsAllowed),
  };
}

// Without an amount there is no account, whatever stands in its boxes.
bool frmFeeElseIncome::accountIsGiven(Payment& payment)
{
  if (MoneyOf(payment.amount->text()).isZero()) {
    payment.code->setText({});
    payment.name->setText({});
    return true;
  }
  if (Trim(payment.name->text()).isEmpty()) {
    session.desk.inform(QString::fromUtf16(payment.missing));
    return false;
  }
  return confirmAccount(*payment.code, *payment.name, QString::fromUtf16(payment.wrong));
}

bool frmFeeElseIncome::amountsBalance()
{
  if (MoneyOf(m_bank.amount->text()) + MoneyOf(m_cash.amount->text()) == totalMoney())
    return true;
  session.desk.inform(QStringLiteral("金额不平衡，请检查！"));
  return false;
}

QList<Statement> frmFeeElseIncome::headerValues() const
{
  return QList<Statement>{
             sqlText(billCode()),
             sqlText(dateText()),
             sqlNumber(SqlNumber(totalMoney())),
             sqlNumber(SqlNumber(MoneyOf(m_cash.amount->text()))),
             sqlNumber(SqlNumber(MoneyOf(m_bank.amount->text()))),
             textOf(*m_cash.code),
             textOf(*m_bank.code),
             textOf(*m_cash.name),
             textOf(*m_bank.name),
             sqlText(Trim(session.params.UserName)),
             textOf(*TxtMemo),
             sqlText(QString::fromUtf16(traits().billType)),
             sqlText("正常"),
             sqlText({}), // Report
             textOf(*TxtSaleMan),
         } +
         closingValues();
}

void frmFeeElseIncome::fillOwnFields(const Recordset& header)
{
  const auto show = [&](const Payment& payment, const char* amount, const char* code, const char* name) {
    payment.amount->setText(FormatDotText(header.field(amount), session.DotSet.DotMoney));
    payment.code->setText(header.text(code));
    payment.name->setText(header.text(name));
  };
  show(m_cash, "Cash", "CashCode", "CashName");
  show(m_bank, "Credit", "CreditCode", "CreditName");
}

void frmFeeElseIncome::clearOwnFields()
{
  LineBillForm::clearOwnFields();
  for (const Payment* payment : {&m_cash, &m_bank})
    for (TextBox* box : {payment->amount, payment->code, payment->name})
      box->setText({});
}

bool frmFeeElseIncome::nameKey(Payment& payment, const Key& key)
{
  const QString text = Trim(payment.name->text());
  if (key.code != Key::Enter || text.isEmpty())
    return false;
  const Recordset rs = OpenRecordset(session, {u"select Code,Name from TabAccountantType  where ( Code like '{}%'  or Name like '{}%' ) "
                                               u" and Code like '{}%'  order by code",
                                               text, text, payment.accounts});
  if (rs.recordCount() == 1) {
    payment.code->setText(rs.text("Code"));
    payment.name->setText(rs.text("Name"));
    focusNext();
  } else {
    payment.code->setText({});
    payment.name->setText({});
    pickAccount(payment);
  }
  return true;
}

void frmFeeElseIncome::pickAccount(const Payment& payment)
{
  const TreePickerCall call{.TreeWhere = {u" where (Code like '{}%' or Code='1') ", payment.accounts},
                            .TreeTarget = QString::fromUtf16(payment.target)};
  if (const auto picked = TreePicker::pick(session, call))
    takeAccount(*picked);
}

// The target decides, not the button: the picker changes it for a list of cash or bank accounts alone.
void frmFeeElseIncome::takeAccount(const PickedNode& account)
{
  for (const Payment* const payment : {&m_cash, &m_bank})
    if (account.TreeTarget == QStringView(payment->target)) {
      payment->code->setText(account.code);
      payment->name->setText(account.name);
    }
  if (account.TreeTarget == QStringView(traits().lines->accountPickerTarget))
    LineBillForm::takeAccount(account);
}
