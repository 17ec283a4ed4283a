#include "Widgets.h"

#include "Unmet.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QProgressBar>

namespace Widgets {
namespace {

Face faceIn(QWidget* window, const QString& name)
{
  if (auto* const action = window->findChild<QAction*>(name))
    return {nullptr, action, window};
  if (auto* const menu = window->findChild<QMenu*>(name))
    return {nullptr, menu->menuAction(), window};
  if (auto* const widget = window->findChild<QWidget*>(name))
    return {widget, nullptr, window};
  return {};
}

bool isForm(const QWidget& window)
{
  return window.objectName().startsWith(u"frm");
}

QWidget* windowOf(const QString& form)
{
  for (QWidget* window : windows())
    if (window->objectName() == form)
      return window;
  throw Unmet(QStringLiteral("no form %1 is open").arg(form));
}

} // namespace

QList<QWidget*> windows()
{
  QList<QWidget*> found;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && isForm(*window))
      found.append(window);
  return found;
}

QWidget* topWindow()
{
  if (QWidget* const modal = QApplication::activeModalWidget(); modal && isForm(*modal))
    return modal;
  // Of several windows side by side, the one that came to the front.
  if (QWidget* const active = QApplication::activeWindow(); active && active->isVisible() && isForm(*active))
    return active;
  const QList<QWidget*> open = windows();
  return open.isEmpty() ? nullptr : open.last();
}

Face find(const ControlName& name)
{
  QWidget* const window = name.form.isEmpty() ? topWindow() : windowOf(name.form);
  if (!window)
    throw Unmet(QStringLiteral("no form is open"));
  if (const Face face = faceIn(window, name.control); face.widget || face.action)
    return face;
  // The name of a form stands for the form itself.
  for (QWidget* open : windows())
    if (name.form.isEmpty() && open->objectName() == name.control)
      return {open, nullptr, open};
  throw Unmet(QStringLiteral("there is no %1 on %2").arg(name.control, window->objectName()));
}

Face reach(const ControlName& name)
{
  const Face face = find(name);
  if (face.window != topWindow())
    throw Unmet(QStringLiteral("%1 stands over %2").arg(topWindow()->objectName(), face.window->objectName()));
  if (!isShown(face))
    throw Unmet(QStringLiteral("%1 is hidden").arg(name.text()));
  if (!isUsable(face))
    throw Unmet(QStringLiteral("%1 is disabled").arg(name.text()));
  return face;
}

bool isShown(const Face& face)
{
  if (face.action)
    return face.action->isVisible();
  return face.widget == face.window ? face.window->isVisible() : face.widget->isVisibleTo(face.window);
}

bool isUsable(const Face& face)
{
  return face.action ? face.action->isEnabled() : face.widget->isEnabled();
}

bool isFocused(const Face& face)
{
  const QWidget* const focused = face.window->focusWidget();
  return face.widget && focused && (focused == face.widget || (face.widget != face.window && face.widget->isAncestorOf(focused)));
}

QString text(const Face& face)
{
  if (face.action)
    return face.action->text();
  QWidget* const widget = face.widget;
  if (widget == face.window)
    return widget->windowTitle();
  if (const auto* edit = qobject_cast<QLineEdit*>(widget))
    return edit->text();
  if (const auto* drop = qobject_cast<QComboBox*>(widget))
    return drop->currentText();
  if (const auto* picker = qobject_cast<QDateEdit*>(widget))
    return picker->date().toString(QStringLiteral("yyyy-MM-dd"));
  if (const auto* label = qobject_cast<QLabel*>(widget))
    return label->text();
  if (const auto* button = qobject_cast<QAbstractButton*>(widget))
    return button->text();
  if (const auto* group = qobject_cast<QGroupBox*>(widget))
    return group->title();
  if (const auto* bar = qobject_cast<QProgressBar*>(widget))
    return QString::number(bar->value());
  if (const auto* list = qobject_cast<QListView*>(widget))
    return list->currentIndex().data().toString();
  return {};
}

QList<QAction*> actions(const Face& face, const ControlName& name)
{
  if (!face.action)
    throw Unmet(QStringLiteral("%1 is no item array").arg(name.text()));
  return face.window->findChildren<QAction*>(name.control);
}

QStringList items(const Face& face, const ControlName& name)
{
  QStringList texts;
  if (const auto* drop = qobject_cast<QComboBox*>(face.widget)) {
    for (int i = 0; i < drop->count(); ++i)
      texts.append(drop->itemText(i));
  } else if (const auto* list = qobject_cast<QListView*>(face.widget)) {
    for (int i = 0; i < list->model()->rowCount(); ++i)
      texts.append(list->model()->index(i, 0).data().toString());
  } else {
    for (const QAction* action : actions(face, name))
      texts.append(action->text());
  }
  return texts;
}

} // namespace Widgets
