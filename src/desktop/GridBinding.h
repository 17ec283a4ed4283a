#pragma once

#include "desktop/GridModel.h"
#include "desktop/WidgetBinding.h"

class QLabel;
class QTableView;

// A grid. All moving of the current cell is done by the grid itself; the view shows where it stands,
// scrolls and tells what it shows first.
class GridBinding : public SelfActingBinding {
  Q_OBJECT

public:
  GridBinding(FormWindow& window, Grid& control, QTableView& face);

  // Twips as logical pixels; at least 1 for what is not hidden.
  static int widthOf(int twips);
  static int heightOf(int twips);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool pressSpecial(const QKeyEvent& event) override;

private:
  void prepareView();
  void layOut();
  void layOutColumns();
  void layOutRows();
  void showCorner();
  void showCurrent();
  void tellFirstShown();
  bool mousePressed(const QPoint& at, Qt::MouseButton button, bool twice);
  bool wheelTurned(int step, Qt::KeyboardModifiers held);
  void clickHeading(int row, int col);

  Grid& m_grid;
  QTableView& m_view;
  GridModel m_model;
  QLabel* m_corner = nullptr;
  QPair<int, int> m_pressed{-1, -1}; // row and column of the last press
};
