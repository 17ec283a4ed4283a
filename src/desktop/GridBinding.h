#pragma once

#include "desktop/ItemViewBinding.h"
#include "screen/Grid.h"

class QLabel;
class QTableView;

// A grid. The Grid itself moves the current cell; the view shows it and scrolls.
class GridBinding : public ItemViewBinding {
  Q_OBJECT

public:
  GridBinding(FormWindow& window, Grid& control, QTableView& widget);

  void show() override;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void mousePressed(const QPoint& at, Qt::MouseButton button, bool twice) override;
  bool pressSpecial(const QKeyEvent& event) override;
  Qt::InputMethodHints inputHints() const override;

private:
  void prepareView();
  void layOut();
  void layOutColumn(int col);
  void showCorner();
  void showCurrent();
  bool wheelTurned(int step, Qt::KeyboardModifiers held);
  void clickHeading(int row, int col);

  Grid& m_grid;
  QTableView& m_view;
  QLabel* m_corner = nullptr;
  QPair<int, int> m_pressed{-1, -1}; // row and column of the last press
};
