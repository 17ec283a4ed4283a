#include "bills/frmBankKeepTake.h"

#include "ledger/FieldHelp.h"
#include "ledger/Money.h"
#include "pickers/TreePicker.h"
#include "platform/Trim.h"
#include "screen/Grid.h"
#include "session/ModuleADO.h"

using namespace ModFuntion;

frmBankKeepTake::frmBankKeepTake(Session& ofSession) : BillForm(ofSession, BankTraits)
{
  buildAccount(m_outgoing, "转出帐户", "C");
  buildAccount(m_incoming, "转入帐户", "R");
  TxtMoney = addAmount(FrameProvide, "TxtMoney");
  TxtMoney->onKey = [this](const Key& key) { return TxtMoney_KeyPress(key); };
  buildSaleManAndMemo();
  // The grid of the other bills is there and holds nothing.
  MSH = add<Grid>(Pic, "MSH");
  MSH->setVisible(false);
  buildFooter();
}

void frmBankKeepTake::buildAccount(AccountBoxes& boxes, const char* caption, const QString& side)
{
  add<Label>(FrameProvide, qPrintable("LabAccountName" + side), caption);
  boxes.code = addEntry(FrameProvide, qPrintable("TxtAccountCode" + side));
  boxes.name = addEntry(FrameProvide, qPrintable("TxtAccountName" + side));
  addPickButton(FrameProvide, qPrintable("ImgAccount" + side), [this, &boxes] { pickAccount(boxes); });
}

void frmBankKeepTake::pickAccount(const AccountBoxes& boxes)
{
  const TreePickerCall call{.TreeWhere = Statement(u"  where (Code = '1' or    Code  ='1001' or Code= '1002' "
                                                   u" or ParentCode like '1001%' or ParentCode like '1002%')"),
                            .TreeKind = QString::fromUtf16(boxes.kind)};
  if (const auto picked = TreePicker::pick(session, call)) {
    boxes.code->setText(picked->code);
    boxes.name->setText(picked->name);
  }
}

QList<BillForm::SaveCheck> frmBankKeepTake::saveChecks() const
{
  return {
      step(&frmBankKeepTake::operatorMayEdit), step(&frmBankKeepTake::dateIsOpen),       step(&frmBankKeepTake::outgoingIsGiven),
      step(&frmBankKeepTake::incomingIsGiven), step(&frmBankKeepTake::accountsDiffer),   step(&frmBankKeepTake::amountIsNotZero),
      step(&frmBankKeepTake::currencyIsGiven), step(&frmBankKeepTake::numberNewBill),    step(&frmBankKeepTake::codeIsGiven),
      step(&frmBankKeepTake::codeHasPrefix),   step(&frmBankKeepTake::voucherIsAllowed),
  };
}

bool frmBankKeepTake::accountIsGiven(const AccountBoxes& boxes)
{
  const QString account = QString::fromUtf16(boxes.kind);
  if (Trim(boxes.name->text()).isEmpty()) {
    session.desk.inform(account + "不能为空！");
    return false;
  }
  return confirmAccount(*boxes.code, *boxes.name, account + "名称不正确（原因：名称不存在或不是处于最末级），请重新选择！");
}

bool frmBankKeepTake::accountsDiffer()
{
  if (Trim(m_outgoing.code->text()) != Trim(m_incoming.code->text()))
    return true;
  session.desk.ask({.text = "转入转出账户为能为同一账户！", .title = "系统提示 "});
  return false;
}

bool frmBankKeepTake::amountIsNotZero()
{
  if (!totalMoney().isZero())
    return true;
  session.desk.inform(QStringLiteral("金额不允许为零，请重新输入！"));
  return false;
}

Currency frmBankKeepTake::totalMoney() const
{
  return MoneyOf(TxtMoney->text());
}

// Money that leaves the cash account is a deposit, anything else a withdrawal, also between two banks.
// The cash account's code counts wherever it stands in the text.
QString frmBankKeepTake::modeText() const
{
  return Trim(m_outgoing.code->text()).contains(u"1001") ? QStringLiteral("银行存取（存现）") : QStringLiteral("银行存取（取现）");
}

QList<Statement> frmBankKeepTake::headerValues() const
{
  return QList<Statement>{
             sqlText(billCode()),
             sqlText(dateText()),
             sqlNumber(SqlNumber(totalMoney())),
             textOf(*m_outgoing.code),
             textOf(*m_outgoing.name),
             textOf(*m_incoming.code),
             textOf(*m_incoming.name),
             sqlText(Trim(session.params.UserName)),
             textOf(*TxtMemo),
             sqlText(modeText()),
             sqlText("正常"),
             sqlText({}), // Report
             textOf(*TxtSaleMan),
         } +
         closingValues();
}

void frmBankKeepTake::fillOwnFields(const Recordset& header)
{
  TxtMoney->setText(FormatDotText(header.field("SumMoney"), session.DotSet.DotMoney));
  m_outgoing.code->setText(header.text("AccountCodeC"));
  m_outgoing.name->setText(header.text("AccountNameC"));
  m_incoming.code->setText(header.text("AccountCodeR"));
  m_incoming.name->setText(header.text("AccountNameR"));
}

void frmBankKeepTake::clearOwnFields()
{
  for (TextBox* box : {m_outgoing.code, m_outgoing.name, m_incoming.code, m_incoming.name, TxtMoney})
    box->setText({});
}

bool frmBankKeepTake::TxtMoney_KeyPress(const Key& key)
{
  if (key.code != Key::Enter)
    return !FilterKeyPress(session.desk, key, ".0123456789", true);
  focusNext();
  return true;
}
