#pragma once

#include "bills/LineBillForm.h"

struct PickedRecord;

// A bill with a trading partner, found by typing a part of his code or name or in the code picker.
class PartnerBillForm : public LineBillForm {
  Q_OBJECT

public:
  using LineBillForm::LineBillForm;

protected:
  // TxtCode, TxtName and their picture button.
  void buildPartner();

  QList<Statement> headerValues() const override;
  // A header column of the bill's own, between its state and its report mark.
  virtual QList<Statement> kindValues() const { return {}; }
  void fillOwnFields(const Recordset& header) override;
  void clearOwnFields() override;
  QList<Statement> partnerValues() const override { return {textOf(*TxtCode), textOf(*TxtName)}; }
  Control& firstField() override { return *TxtName; }
  void ShowPartnerInfo() override;

  // The columns that are looked up for a partner typed in, and what is missing in ShowPartnerInfo.
  virtual SqlLiteral partnerColumns() const { return u"Code,Name,SaleMan"; }
  virtual bool partnerBringsSaleMan() const { return true; }
  virtual QString noPartnerMessage() const = 0;

  bool partnerIsNamed();
  bool partnerIsKnown();

  TextBox* TxtCode = nullptr;
  TextBox* TxtName = nullptr;

private:
  bool TxtName_KeyPress(const Key& key);
  void ImgName_Click();
  void takePartner(const PickedRecord& picked);
};
