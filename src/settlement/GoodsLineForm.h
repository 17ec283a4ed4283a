#pragma once

#include "database/Recordset.h"
#include "settlement/ListForm.h"

// The conditions that invoice matching and its summary share: lines of goods bills of one kind, by the kind of
// invoice of their bills and by whether they have been matched. Only bills in the state 正常 are included.
class GoodsLineForm : public ListForm {
  Q_OBJECT

public:
  void Form_Load() override { SetGridHead(); }

protected:
  // `foreignOrders` are the directives of screens that share these lists and lay them out themselves: for them
  // nothing is laid out or listed here.
  GoodsLineForm(Session& ofSession, const ListTraits& traits, std::span<const ListColumn> columns,
                std::span<const QStringView> foreignOrders);

  // The tables that the statement reads, and what follows its columns: from these tables, under the conditions.
  struct Tables {
    SqlName header;
    SqlName line;
    Statement fromWhere;
  };
  virtual Statement statement(const Tables& tables) const = 0;
  // True if the result counts as empty.
  virtual bool isNothing(const Recordset& rs) const { return rs.eof(); }
  // Shows the rows below the headings, and the totals row below them.
  virtual void showRows(Recordset& rs) = 0;

  Statement BuildQuerySql() override;
  void FillMSH(const Statement& list) override;
  std::span<const ListColumn> columns() const override;
  QStringList printHead() const override;
  QString headerTable() const;
  QString lineTable() const;
  void takePartner(const PickedRecord& picked, PartnerBox box) override;
  void ToolOldBill_Click();
  // Turns the last, empty row into the totals row; the caller sets its amounts.
  void headTotals();

private:
  QList<Statement> invoiceKinds() const;
  QList<Statement> conditions() const;

  const std::span<const ListColumn> m_columns;
  const std::span<const QStringView> m_foreignOrders;
};
