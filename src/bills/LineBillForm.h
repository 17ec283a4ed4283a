#pragma once

#include "bills/BillForm.h"
#include "bills/LineGrid.h"

#include <memory>

struct PickedNode;

// A bill with lines: an account, an amount and a remark each, typed in the grid MSH. What a line's
// account may be and where its rows are stored stands in the bill's LineTraits.
class LineBillForm : public BillForm, private LineGridHost {
  Q_OBJECT

public:
  using BillForm::BillForm;

protected:
  void buildLines();

  void InitLineGrid() override { m_lines->InitLineGrid(); }
  void fillLines(const QString& table, const QString& code) override;
  void insertLines() override;
  void clearOwnFields() override { LabTotalMoney->setCaption({}); }
  void closeCellEditor() override { Text2->hide(); }
  ModSavePrintData::PrintGrid printedGrid() const override;
  void InsertLineRow() override { m_lines->InsertLineRow(); }
  void DeleteLineRow() override { m_lines->DeleteLineRow(); }
  void FMSHFormat_Click() override;
  Currency totalMoney() const override;

  // The partner's columns, the same in the header's row and in each line's.
  virtual QList<Statement> partnerValues() const { return {}; }
  // An account was picked for the current line.
  virtual void takeAccount(const PickedNode& account);
  // Called for each stored line that is shown.
  virtual void fillFromLine(const Recordset& line) { Q_UNUSED(line) }

  bool amountsFit() override;
  bool hasLines();
  bool lineAccountsAreLeaves();
  bool noLineIsNegative();

  Container* FrameTotal = nullptr;
  Label* LabTotalMoney = nullptr;
  Grid* MSH = nullptr;
  CellEditor* Text2 = nullptr;

private:
  bool linesEditable() const override { return FrameProvide->isUsable(); }
  QStringList accountHeadings() const override;
  QString layoutKey() const override;
  void pickLineAccount() override;
  QList<Statement> lineValues(int row) const;

  std::unique_ptr<LineGrid> m_lines;
};
