#include "desktop/ActionBindings.h"

#include "desktop/FormWindow.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>

using namespace Qt::StringLiterals;

ActionBinding::ActionBinding(FormWindow& window, Control& control, QAction& action) : Binding(window, control), m_action(action)
{
  takeShortcut();
  connect(&action, &QAction::triggered, this, &ActionBinding::trigger);
}

// A tool button and a menu item that do the same have the same shortcut. It belongs to the menu item, which
// shows it; the tool button mentions it in its tool tip.
void ActionBinding::takeShortcut()
{
  const QKeySequence key(formWindow().actionDesign(control()).shortcut.toString());
  const QString tip = control().toolTip().isEmpty() ? control().caption() : control().toolTip();
  m_action.setToolTip(key.isEmpty() ? tip : u"%1 (%2)"_s.arg(tip, key.toString(QKeySequence::NativeText)));
  if (key.isEmpty())
    return;
  const bool isMenuItem = qobject_cast<const MenuItem*>(&control());
  for (QAction* other : formWindow().window().findChildren<QAction*>()) {
    if (other->shortcut() != key)
      continue;
    if (!isMenuItem)
      return;
    other->setShortcut({});
  }
  m_action.setShortcut(key);
}

void ActionBinding::show()
{
  m_action.setText(control().caption());
  m_action.setEnabled(control().isUsable());
  m_action.setVisible(control().isShown());
}

void ActionBinding::trigger()
{
  // The tool button that shows the action, if any: a menu may have to open below it.
  QWidget* tool = nullptr;
  for (QObject* const holder : m_action.associatedObjects())
    if (auto* const bar = qobject_cast<QToolBar*>(holder))
      tool = bar->widgetForAction(&m_action);
  formWindow().click(control(), tool);
}

MenuBinding::MenuBinding(FormWindow& window, Menu& control, QMenu& menu) : Binding(window, control), m_menu(menu)
{
  connect(&control, &Menu::poppedUp, this, [this] { m_menu.popup(formWindow().popUpPlace()); });
}

void MenuBinding::show()
{
  m_menu.setTitle(control().caption());
  m_menu.menuAction()->setEnabled(control().isUsable());
  m_menu.menuAction()->setVisible(control().isShown());
}

ItemArrayBinding::ItemArrayBinding(FormWindow& window, MenuItemArray& control, QMenu& menu)
    : Binding(window, control), m_items(control), m_menu(menu)
{
}

void ItemArrayBinding::show()
{
  const QStringList captions = m_items.captions();
  while (m_actions.size() < captions.size()) {
    const int index = int(m_actions.size());
    QAction* const action = new QAction(&m_menu);
    action->setObjectName(m_items.name());
    if (m_actions.isEmpty())
      m_menu.addAction(action);
    else
      m_menu.insertAction(m_menu.actions().value(m_menu.actions().indexOf(m_actions.last()) + 1), action);
    connect(action, &QAction::triggered, this, [this, index] { formWindow().act([&] { m_items.clickItem(index); }); });
    m_actions.append(action);
  }
  for (int i = 0; i < m_actions.size(); ++i) {
    m_actions[i]->setText(captions[i]);
    m_actions[i]->setEnabled(m_items.isUsable());
    m_actions[i]->setVisible(m_items.isShown());
  }
}
