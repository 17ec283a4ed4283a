#pragma once

#include "settlement/GoodsLineForm.h"

// Invoice matching: lists the lines of goods bills, and a click in the last column, or Space in any, ticks a line or removes its
// tick, at once and without another query. While FrameCondition is disabled the list is read-only.
class frmGouDui : public GoodsLineForm {
  Q_OBJECT

public:
  explicit frmGouDui(Session& ofSession);

protected:
  Statement statement(const Tables& tables) const override;
  void showRows(Recordset& rs) override;

private:
  void toggleTick();
  QString billCodeOf(int row) const;
};
