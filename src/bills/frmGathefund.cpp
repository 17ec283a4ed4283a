#include "bills/frmGathefund.h"

#include "platform/NumberText.h"

QList<BillForm::SaveCheck> frmGathefund::saveChecks() const
{
  return {
      step(&frmGathefund::operatorMayEdit),  step(&frmGathefund::dateIsOpen),     step(&frmGathefund::amountsFit),
      step(&frmGathefund::totalIsNotZero),   step(&frmGathefund::partnerIsNamed), step(&frmGathefund::partnerIsKnown),
      step(&frmGathefund::currencyIsGiven),  step(&frmGathefund::hasLines),       step(&frmGathefund::lineAccountsAreLeaves),
      step(&frmGathefund::numberNewBill),    step(&frmGathefund::codeIsGiven),    step(&frmGathefund::codeHasPrefix),
      step(&frmGathefund::voucherIsAllowed),
  };
}

void frmGathefund::clearOwnFields()
{
  FundBillForm::clearOwnFields();
  closeCellEditor();
}

// The last line decides which currency is shown.
void frmGathefund::fillFromLine(const Recordset& line)
{
  TxtMoneyName->setText(line.text("MoneyName"));
  TxtMoneyRate->setText(NumberText::ofSingle(float(line.number("MoneyRate"))));
}
