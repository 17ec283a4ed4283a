#pragma once

#include "settlement/ListForm.h"

// The conditions that invoice matching and its summary share: lines of goods bills of one kind, by the
// invoices that their bills carry and by whether they have been matched. Only bills in the state 正常
// take part.
class GoodsLineForm : public ListForm {
  Q_OBJECT

public:
  CheckBox* ChZZSFP = nullptr;
  CheckBox* ChPTFP = nullptr;
  CheckBox* ChSJ = nullptr;
  ComboBox* CombBillType = nullptr;
  ComboBox* CombShowType = nullptr;

protected:
  GoodsLineForm(Session& ofSession, const ListTraits& traits);

  // The tables that the statement reads, and its conditions, each led by " and ".
  struct Source {
    QString header;
    QString line;
    QString conditions;

    // The tables and the conditions as they stand behind the columns of the statement.
    QString fromWhere() const;
  };
  virtual QString statement(const Source& source) const = 0;

  void Form_Load() override { SetGridHead(); }
  QString BuildQuerySql() override;
  QString headerTable() const;
  QString lineTable() const;
  void ToolOldBill_Click();
  // Turns the last, blank row into the totals row; its amounts are the caller's.
  void headTotals();

private:
  QStringList invoiceKinds() const;
  QStringList conditions() const;
};
