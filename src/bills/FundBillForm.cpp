#include "bills/FundBillForm.h"

#include "ledger/Balance.h"
#include "ledger/Money.h"
#include "platform/Trim.h"

using namespace ModFuntion;

namespace {

const QString BalanceHeading = QStringLiteral("截止当日尚欠：");

} // namespace

FundBillForm::FundBillForm(Session& ofSession, const BillTraits& traits, int balanceSign)
    : PartnerBillForm(ofSession, traits), m_balanceSign(balanceSign)
{
  buildPartner();
  TxtName->onChange = [this] { RefreshBalanceLabel(); };
  buildSaleManAndMemo();
  buildMoneyType();
  buildLines();
  LabFundAttention = add<Label>(Pic, "LabFundAttention", BalanceHeading);
  buildFooter();
}

QStringList FundBillForm::headerValues() const
{
  return QStringList{
             quoted(billCode()),
             quoted(dateText()),
             quotedText(*TxtCode),
             quotedText(*TxtName),
             quoted(Trim(session.params.UserName)),
             totalMoney().toText(),
             quotedText(*TxtMemo),
             quoted(QString::fromUtf16(traits().billType)),
             quoted("正常"),
             quoted({}), // Report
             quotedText(*TxtSaleMan),
         } +
         closingValues();
}

void FundBillForm::fillOwnFields(const Recordset& header)
{
  PartnerBillForm::fillOwnFields(header);
  RefreshBalanceLabel();
}

void FundBillForm::clearOwnFields()
{
  PartnerBillForm::clearOwnFields();
  LabFundAttention->setCaption(BalanceHeading);
}

void FundBillForm::RefreshBalanceLabel()
{
  const QString code = Trim(TxtCode->text());
  if (code.isEmpty())
    return;
  const QString currency = session.params.IsLotMoney ? Trim(TxtMoneyName->text()) : QString();
  const Currency balance = GetOutstandingBalance(session, code, DTPDate->date(), currency, IsAuditedOnly(session)).EndBalance;
  const Currency shown = m_balanceSign < 0 ? -balance : balance;
  LabFundAttention->setCaption(BalanceHeading + FormatDotText(shown, session.DotSet.DotMoney) + "元");
}
