#include "bills/frmPayfund.h"

QList<BillForm::SaveCheck> frmPayfund::saveChecks() const
{
  return {
      step(&frmPayfund::operatorMayEdit),
      step(&frmPayfund::dateIsOpen),
      step(&frmPayfund::amountsFit),
      step(&frmPayfund::totalIsNotZero),
      step(&frmPayfund::partnerIsNamed),
      step(&frmPayfund::partnerIsKnown),
      step(&frmPayfund::currencyIsGiven),
      step(&frmPayfund::hasLines),
      step(&frmPayfund::lineAccountsAreLeaves),
      step(&frmPayfund::numberNewBill),
      // The prefix comes first here, so a blank code gets its message.
      step(&frmPayfund::codeHasPrefix),
      step(&frmPayfund::codeIsGiven),
      step(&frmPayfund::voucherIsAllowed),
  };
}
