#pragma once

#include "bills/FundBillForm.h"

// The receipt: money received from a customer into one or more cash or bank accounts. It also shows
// the source bills of the write-off, payments among them.
class frmGathefund : public FundBillForm {
  Q_OBJECT

public:
  explicit frmGathefund(Session& ofSession) : FundBillForm(ofSession, ReceiptTraits, 1, WriteOff::Receipt) {}

protected:
  QList<SaveCheck> saveChecks() const override;
  void clearOwnFields() override;
  void fillFromLine(const Recordset& line) override;
  QString noPartnerMessage() const override { return QStringLiteral("请先确定客户！"); }
};
