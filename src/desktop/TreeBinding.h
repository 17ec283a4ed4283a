#pragma once

#include "desktop/WidgetBinding.h"
#include "screen/Tree.h"

class QTreeView;

// A tree. Which branches are open and which node is the current one is told by the tree itself; the
// view shows it and scrolls.
class TreeBinding : public SelfActingBinding {
  Q_OBJECT

public:
  TreeBinding(FormWindow& window, Tree& control, QTreeView& face);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void prepareView();
  void showNodes(const QModelIndex& above);
  void showCurrent();
  void mousePressed(const QPoint& at, bool twice);

  Tree& m_tree;
  QTreeView& m_view;
};
