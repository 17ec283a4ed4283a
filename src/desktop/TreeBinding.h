#pragma once

#include "desktop/ItemViewBinding.h"
#include "screen/Tree.h"

class QLabel;
class QTreeView;

// A tree. The Tree itself decides which branches are open and which node is the current one; the view shows
// them and scrolls.
class TreeBinding : public ItemViewBinding {
  Q_OBJECT

public:
  TreeBinding(FormWindow& window, Tree& control, QTreeView& widget);

  void show() override;

protected:
  void mousePressed(const QPoint& at, Qt::MouseButton button, bool twice) override;

private:
  void showNodes(const QModelIndex& above);

  Tree& m_tree;
  QTreeView& m_view;
  QLabel& m_typed; // what is being typed, in the lower corner
};
