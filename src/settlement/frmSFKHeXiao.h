#pragma once

#include "settlement/AllocationEditor.h"
#include "settlement/HXLinks.h"
#include "settlement/ListForm.h"

// The write-off screen: allocates one payment or receipt (the SFK bill) over the goods bills that it settles, and
// lists all write-offs. HXMode says which.
//
// Rows 1 to rows - 2 are goods bills, the last row holds totals. An amount set to 0 deletes its link at once, which can be
// put back until the commit; any other amount is written by the commit, which requires that the whole money bill is allocated, in single
// precision.
class frmSFKHeXiao : public ListForm {
  Q_OBJECT

public:
  static constexpr char16_t QueryMode[] = u"收付款核销查询";

  explicit frmSFKHeXiao(Session& ofSession, const char16_t* mode = QueryMode);

  // The money bill that is allocated; empty in query mode.
  QString SFKBillCode;
  float SFKMoney = 0;
  QDate SFKBillDatee;
  // Whether the money bill still has the stored total that it had when it was handed over.
  std::function<bool()> isUnchanged;

  Label LabSFKMoney;
  Label LabRestore; // below the list: the link deleted last, which Ctrl+Z puts back

  // Moves to the first amount, if anything is listed.
  void goToFirstAmount();

  void Form_Load() override;

protected:
  // The choice is ignored: the boxes are unchanged.
  void takePartner(const PickedRecord&, PartnerBox) override {}
  Statement BuildQuerySql() override;
  void FillMSH(const Statement& list) override;
  std::span<const ListColumn> columns() const override;
  bool offersPartners() const override { return isQuery(); }

private:
  bool isQuery() const { return HXMode == QueryMode; }
  QString goodsTable() const;
  QList<Statement> conditions() const;
  Statement stateCondition() const;
  void showRows(const Recordset& rs);
  QStringList settledLine(QStringList line);

  void takeAmount();
  void dropLink(int row);
  void restoreLink();
  void offerRestore();
  void RefreshTotals();
  void CommitHX();
  bool allocatesWholeBill();
  bool isStillOpen(int row);
  void SaveHXRow(int row);
  void ShowInOutBill();
  void ShowSFKBill();

  int lastDataRow() const { return MSH.rows() - 2; }
  QString cell(int row, int col) const;

  const QString HXMode;
  CellEditor Text2;
  AllocationEditor m_editor;

  struct Dropped {
    HXLinks::StoredLink link;
    QString billType;
    float settledByOthers = 0; // of the goods bill, when the link was deleted
  };
  QList<Dropped> m_dropped; // the last one last
};
