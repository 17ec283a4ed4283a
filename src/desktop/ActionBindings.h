#pragma once

#include "desktop/Binding.h"
#include "screen/Controls.h"

#include <QList>

class QAction;
class QMenu;

// A tool button or menu item, shown as an action.
class ActionBinding : public Binding {
  Q_OBJECT

public:
  ActionBinding(FormWindow& window, Control& control, QAction& action);
  void show() override;

private:
  void takeShortcut();
  void trigger();

  QAction& m_action;
};

// A menu of the menu bar, or a submenu.
class MenuBinding : public Binding {
  Q_OBJECT

public:
  MenuBinding(FormWindow& window, Menu& control, QMenu& menu);
  void show() override;

private:
  QMenu& m_menu;
};

// Menu items that share one name: one action for each, in their order.
class ItemArrayBinding : public Binding {
  Q_OBJECT

public:
  ItemArrayBinding(FormWindow& window, MenuItemArray& control, QMenu& menu);
  void show() override;

private:
  MenuItemArray& m_items;
  QMenu& m_menu;
  QList<QAction*> m_actions;
};
