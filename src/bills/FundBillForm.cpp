#include "bills/FundBillForm.h"

#include "ledger/Balance.h"
#include "ledger/Money.h"
#include "platform/Trim.h"

using namespace ModFuntion;

namespace {

const QString BalanceHeading = QStringLiteral("截止当日尚欠：");

} // namespace

FundBillForm::FundBillForm(Session& ofSession, const BillTraits& traits, int balanceSign, const WriteOff::Kind& writeOff)
    : PartnerBillForm(ofSession, traits), m_balanceSign(balanceSign), m_writeOff(writeOff)
{
  buildPartner();
  TxtName->onChange = [this] { RefreshBalanceLabel(); };
  buildSaleManAndMemo();
  buildLines();
  LabFundAttention = add<Label>(Pic, "LabFundAttention", BalanceHeading);
  buildFooter();
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

void FundBillForm::openWriteOff()
{
  WriteOff::open(session, m_writeOff, {storedBill().code, LabTotalMoney->caption(), TxtCode->text(), TxtName->text(), DTPDate->date()});
}
