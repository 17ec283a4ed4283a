#pragma once

#include "settlement/AllocationEditor.h"
#include "settlement/ListForm.h"

// The write-off bench: allocates one payment or receipt (the SFK bill) over the goods bills that it
// settles, and lists all write-offs. HXMode says which; it is set before the form is loaded.
//
// Rows 1 to rows - 2 are goods bills, the last row holds totals. An amount set to 0 drops its link at
// once; any other amount is written by the commit, which demands that the money bill is used up to the
// last digit of single precision.
class frmSFKHeXiao : public ListForm {
  Q_OBJECT

public:
  explicit frmSFKHeXiao(Session& ofSession);

  // The money bill that is allocated; none in the query mode.
  QString SFKBillCode;
  float SFKMoney = 0;
  QDate SFKBillDatee;

  ComboBox* CombHXType = nullptr;
  Label* LabSFKMoney = nullptr;

  // Puts the operator on the first amount, if anything is listed.
  void goToFirstAmount();

protected:
  void Form_Load() override;
  // The choice is dropped: the boxes stay as they were.
  void takePartner(const PickedRecord&, PartnerBox) override {}
  Statement BuildQuerySql() override;
  void FillMSH(const Statement& list) override;
  std::span<const ListColumn> columns() const override;
  bool offersPartners() const override { return isQuery(); }

private:
  bool isQuery() const;
  QString goodsTable() const;
  QList<Statement> conditions() const;
  Statement stateCondition() const;
  void showRows(const Recordset& rs);
  QStringList settledLine(QStringList line);

  void Txt2ToMSH();
  void RefreshTotals();
  void CommitHX();
  bool allocatesWholeBill();
  void SaveHXRow(int row);
  void ShowInOutBill();
  void ShowSFKBill();

  int lastDataRow() const { return MSH->rows() - 2; }
  QString cell(int row, int col) const;

  ComboBox* CombHXState = nullptr;
  CellEditor* Text2 = nullptr;
  std::unique_ptr<AllocationEditor> m_editor;
};
