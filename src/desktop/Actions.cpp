#include "desktop/Actions.h"

#include "desktop/FormWindow.h"
#include "desktop/Icons.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>

namespace Actions {
namespace {

struct Face {
  const char* name; // of the tool button or menu item
  const char* icon = nullptr;
  const char* shortcut = nullptr;
  bool startsGroup = false;
};

constexpr Face Faces[] = {
    {"ToolBuild", "new", "Ctrl+N"},
    {"ToolSave", "save", "Ctrl+S"},
    {"ToolAuditing", "audit", "F9", true},
    {"ToolUnAuditing", "unaudit", "Shift+F9"},
    {"ToolDelete", "delete", "Ctrl+Shift+Del", true},
    {"ToolInsertRow", "insert-row", "Ctrl+I", true},
    {"ToolDeleteRow", "delete-row", "Ctrl+D"},
    {"ToolRedWord", "void", nullptr, true},
    {"ToolSeeWarrent", "voucher", "Ctrl+Shift+V", true},
    {"ToolInOutBill", "goods-bill", "Ctrl+B"},
    {"ToolSFKBill", "money-bill", "Ctrl+M"},
    {"ToolOldBill", "goods-bill", "Ctrl+B"},
    {"ToolInf", "detail", "Ctrl+E"},
    {"ToolHX", "write-off", "Ctrl+H"},
    {"ToolOK", "take-in", nullptr, true},
    {"ToolFiltre", "filter"},
    {"ToolPrint", "print", "Ctrl+P", true},
    {"ToolProvideInf", "partner", "Ctrl+R", true},
    {"ToolClientInf", "partner", "Ctrl+R", true},
    {"ToolProvideClientInf", "partner", "Ctrl+R", true},
    {"ToolImg", "images", "Ctrl+G"},
    {"ToolBefore", "previous", "Ctrl+PgUp", true},
    {"ToolBack", "next", "Ctrl+PgDown"},
    {"ToolExit", "exit", "Ctrl+F4", true},
    {"FBuild", "new", "Ctrl+N"},
    {"FSave", "save", "Ctrl+S"},
    {"FDelete", "delete", "Ctrl+Shift+Del"},
    {"FSeeWarrent", "voucher", "Ctrl+Shift+V", true},
    {"FMSHFormat", nullptr, nullptr, true},
    {"FPrintSet", nullptr, nullptr, true},
    {"PDirect", "print"},
    {"CmdQuery", nullptr, "F5"},
    {"FExit", "exit", "Ctrl+F4", true},
    {"ToolSelect", "select"},
    {"ToolAdd", "add"},
    {"ToolRefresh", "refresh", "F5"},
    {"MPDirect_Excel", nullptr, nullptr, true},
    {"MPrintSet_Excel", nullptr, nullptr, true},
};

const Face* faceOf(const Control& control)
{
  for (const Face& face : Faces)
    if (control.name() == QLatin1String(face.name))
      return &face;
  return nullptr;
}

} // namespace

QIcon icon(const Control& control)
{
  const Face* const face = faceOf(control);
  const char* const picture = qobject_cast<const ImageButton*>(&control) ? "pick" : face ? face->icon : nullptr;
  return picture ? Icons::icon(picture) : QIcon();
}

QKeySequence shortcut(const Control& control)
{
  const Face* const face = faceOf(control);
  return face && face->shortcut ? QKeySequence(QLatin1String(face->shortcut)) : QKeySequence();
}

bool startsGroup(const Control& control)
{
  const Face* const face = faceOf(control);
  return face && face->startsGroup;
}

} // namespace Actions

ActionBinding::ActionBinding(FormWindow& window, Control& control, QAction& face) : Binding(window, control), m_action(face)
{
  takeShortcut();
  connect(&face, &QAction::triggered, this, &ActionBinding::trigger);
}

// A tool button and a menu item that do the same have the same key. It belongs to the menu item, which
// shows it; the tool button tells of it.
void ActionBinding::takeShortcut()
{
  const QKeySequence key = Actions::shortcut(control());
  const QString tip = control().toolTip().isEmpty() ? control().caption() : control().toolTip();
  m_action.setToolTip(key.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, key.toString(QKeySequence::NativeText)));
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
  // The tool button that shows the action, if one does: a menu may have to come up under it.
  for (QObject* const holder : m_action.associatedObjects())
    if (auto* const bar = qobject_cast<QToolBar*>(holder))
      formWindow().setPressedTool(bar->widgetForAction(&m_action));
  formWindow().act([this] { control().click(); });
  formWindow().setPressedTool(nullptr);
}

MenuBinding::MenuBinding(FormWindow& window, Menu& control, QMenu& face) : Binding(window, control), m_menu(face)
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
