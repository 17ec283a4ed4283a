#pragma once

#include "bills/FundBillForm.h"

// The payment: money paid to a supplier out of one or more cash or bank accounts.
class frmPayfund : public FundBillForm {
  Q_OBJECT

public:
  explicit frmPayfund(Session& ofSession) : FundBillForm(ofSession, PaymentTraits, -1, WriteOff::Payment) {}

protected:
  QList<SaveCheck> saveChecks() const override;
  QString noPartnerMessage() const override { return QStringLiteral("请先确定往来单位！"); }
};
