#pragma once

#include "settlement/frmGouDui.h"

// The invoice summary: the lines of invoice matching, summed for each trading partner. A row opens its lines on
// frmGouDui, read-only.
class frmGouDuiTogather : public GoodsLineForm {
  Q_OBJECT

public:
  explicit frmGouDuiTogather(Session& ofSession);

protected:
  Statement statement(const Tables& tables) const override;
  bool isNothing(const Recordset& rs) const override;
  void showRows(Recordset& rs) override;
  void onUnload() override;

private:
  void addUp();
  void ToolInf_Click();
  void copyConditions(frmGouDui& detail);

  std::unique_ptr<frmGouDui> m_detail;
};
