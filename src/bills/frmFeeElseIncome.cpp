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
      step(&frmFeeElseIncome::operatorMayEdit),    step(&frmFeeElseIncome::dateIsOpen),
      step(&frmFeeElseIncome::hasLines),           step(&frmFeeElseIncome::lineAccountsAreLeaves),
      step(&frmFeeElseIncome::cashAccountIsGiven), step(&frmFeeElseIncome::bankAccountIsGiven),
      step(&frmFeeElseIncome::currencyIsGiven),    step(&frmFeeElseIncome::totalIsNotZero),
      step(&frmFeeElseIncome::amountsBalance),     step(&frmFeeElseIncome::numberNewBill),
      step(&frmFeeElseIncome::newCodeHasPrefix),   step(&frmFeeElseIncome::codeIsGiven),
      step(&frmFeeElseIncome::noLineIsNegative),   step(&frmFeeElseIncome::voucherIsAllowed),
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

QStringList frmFeeElseIncome::headerValues() const
{
  return QStringList{
             quoted(billCode()),
             quoted(dateText()),
             totalMoney().toText(),
             MoneyOf(m_cash.amount->text()).toText(),
             MoneyOf(m_bank.amount->text()).toText(),
             quotedText(*m_cash.code),
             quotedText(*m_bank.code),
             quotedText(*m_cash.name),
             quotedText(*m_bank.name),
             quoted(Trim(session.params.UserName)),
             quotedText(*TxtMemo),
             quoted(QString::fromUtf16(traits().billType)),
             quoted("正常"),
             quoted({}), // Report
             quotedText(*TxtSaleMan),
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
  const Recordset rs =
      OpenRecordset(session, "select Code,Name from TabAccountantType " + QString(" where ( Code like '") + text + "%' " +
                                 " or Name like '" + text + "%' ) " + " and Code like '" + payment.accounts + "%' " + " order by code");
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
  TreePicker::pick(session, *this,
                   {.TreeWhere = QString(" where (Code like '") + payment.accounts + "%' or Code='1') ",
                    .TreeTarget = QString::fromUtf16(payment.target)});
}
