#include "desktop/ControlBindings.h"

#include "desktop/ActionBindings.h"
#include "desktop/CellEditorBinding.h"
#include "desktop/FormWindow.h"
#include "desktop/GridBinding.h"
#include "desktop/Icons.h"
#include "desktop/PlainBindings.h"
#include "desktop/TreeBinding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

namespace {

template <typename Kind, typename Widget, typename Bound> Binding* bind(FormWindow& window, Control& control, QWidget& found)
{
  auto* const kind = qobject_cast<Kind*>(&control);
  auto* const widget = qobject_cast<Widget*>(&found);
  return kind && widget ? new Bound(window, *kind, *widget) : nullptr;
}

// Which widget shows which kind of control. The first matching row applies.
Binding* (*const Binds[])(FormWindow&, Control&, QWidget&) = {
    bind<ComboBox, QComboBox, ComboBinding>,
    bind<TextBox, QLineEdit, TextBinding>,
    bind<DatePicker, QDateEdit, DateBinding>,
    bind<Option, QRadioButton, ButtonBinding>,
    bind<CheckBox, QCheckBox, ButtonBinding>,
    bind<Button, QPushButton, ButtonBinding>,
    bind<ImageButton, QToolButton, PictureButtonBinding>,
    bind<Label, QLabel, CaptionBinding>,
    bind<Grid, QTableView, GridBinding>,
    bind<Tree, QTreeView, TreeBinding>,
    bind<ListBox, QListWidget, ListBinding>,
    bind<ProgressBar, QProgressBar, ProgressBinding>,
    bind<Container, QGroupBox, CaptionBinding>,
    bind<Container, QWidget, WidgetBinding>,
};

Binding* bindWidget(FormWindow& window, Control& control)
{
  auto* const widget = window.window().findChild<QWidget*>(control.name());
  if (!widget)
    return nullptr;
  for (const auto& bindKind : Binds)
    if (Binding* const made = bindKind(window, control, *widget))
      return made;
  return nullptr;
}

// The widget of the container that holds a control.
template <typename Widget> Widget* holder(const FormWindow& window, const Control& control)
{
  return window.window().findChild<Widget*>(control.parent()->objectName());
}

QAction* addAction(const FormWindow& window, QWidget& owner, const Control& control)
{
  if (window.actionDesign(control).startsGroup && !owner.actions().isEmpty()) {
    QAction* const line = new QAction(&owner);
    line->setSeparator(true);
    owner.addAction(line);
  }
  QAction* const made = new QAction(&owner);
  made->setObjectName(control.name());
  owner.addAction(made);
  return made;
}

Binding* bindToolButton(FormWindow& window, Control& control)
{
  auto* const bar = holder<QToolBar>(window, control);
  if (!bar)
    return nullptr;
  QAction* const action = addAction(window, *bar, control);
  action->setIcon(Icons::icon(window.actionDesign(control).icon));
  if (QWidget* const button = bar->widgetForAction(action))
    button->setFocusPolicy(Qt::NoFocus);
  return new ActionBinding(window, control, *action);
}

Binding* bindMenu(FormWindow& window, Menu& control)
{
  auto* const above = holder<QMenu>(window, control);
  auto* const bar = window.window().findChild<QMenuBar*>();
  if (!above && !bar)
    return nullptr;
  QMenu* const menu = above ? above->addMenu(QString()) : bar->addMenu(QString());
  menu->setObjectName(control.name());
  return new MenuBinding(window, control, *menu);
}

Binding* bindMenuEntry(FormWindow& window, Control& control)
{
  auto* const menu = holder<QMenu>(window, control);
  if (!menu)
    return nullptr;
  if (auto* const items = qobject_cast<MenuItemArray*>(&control))
    return new ItemArrayBinding(window, *items, *menu);
  return new ActionBinding(window, control, *addAction(window, *menu, control));
}

// VS and HS are the scroll bars of the area that contains the form's panel.
Binding* bindScrollBar(FormWindow& window, ScrollBar& control)
{
  auto* const area = window.window().findChild<QScrollArea*>();
  if (!area)
    return nullptr;
  return new ScrollBarBinding(window, control, control.name() == u"HS" ? *area->horizontalScrollBar() : *area->verticalScrollBar());
}

Binding* bindCellEditor(FormWindow& window, CellEditor& control)
{
  auto* const view = window.window().findChild<QTableView*>(control.grid().name());
  return view && view->model() ? new CellEditorBinding(window, control, *view) : nullptr;
}

} // namespace

Binding* bindControl(FormWindow& window, Control& control)
{
  if (auto* const editor = qobject_cast<CellEditor*>(&control))
    return bindCellEditor(window, *editor);
  if (auto* const menu = qobject_cast<Menu*>(&control))
    return bindMenu(window, *menu);
  if (auto* const bar = qobject_cast<ScrollBar*>(&control))
    return bindScrollBar(window, *bar);
  if (qobject_cast<MenuItem*>(&control) || qobject_cast<MenuItemArray*>(&control))
    return bindMenuEntry(window, control);
  if (qobject_cast<ToolButton*>(&control))
    return bindToolButton(window, control);
  return bindWidget(window, control);
}
