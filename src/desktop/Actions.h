#pragma once

#include "desktop/Binding.h"
#include "screen/Controls.h"

#include <QIcon>
#include <QKeySequence>
#include <QList>

class QAction;
class QMenu;
class QMenuBar;
class QToolBar;

// What the shell adds to tool buttons and menu items, by the names that the screens share.
namespace Actions {

// The picture of a button; a null icon if it has none.
QIcon icon(const Control& control);
// The key that presses it from anywhere in the window; empty if there is none.
QKeySequence shortcut(const Control& control);
// True for the first of a group, so that a line parts it from those before.
bool startsGroup(const Control& control);

} // namespace Actions

// A tool button or menu item whose face is an action.
class ActionBinding : public Binding {
  Q_OBJECT

public:
  ActionBinding(FormWindow& window, Control& control, QAction& face);
  void show() override;

private:
  void takeShortcut();
  void trigger();

  QAction& m_action;
};

// A menu, of the menu bar or below another menu.
class MenuBinding : public Binding {
  Q_OBJECT

public:
  MenuBinding(FormWindow& window, Menu& control, QMenu& face);
  void show() override;

private:
  QMenu& m_menu;
};

// Items that share one name: one action for each, made as the form adds them, in their order.
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
