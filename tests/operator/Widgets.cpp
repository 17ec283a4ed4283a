#include "Widgets.h"

#include "Failure.h"

#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QMenu>

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
  throw Failure(QStringLiteral("no form %1 is open").arg(form));
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
  // Of several windows, the active one.
  if (QWidget* const active = QApplication::activeWindow(); active && active->isVisible() && isForm(*active))
    return active;
  const QList<QWidget*> open = windows();
  return open.isEmpty() ? nullptr : open.last();
}

Face find(const ControlName& name)
{
  QWidget* const window = name.form.isEmpty() ? topWindow() : windowOf(name.form);
  if (!window)
    throw Failure(QStringLiteral("no form is open"));
  if (const Face face = faceIn(window, name.control); face.widget || face.action)
    return face;
  // The name of a form means the form itself.
  for (QWidget* open : windows())
    if (name.form.isEmpty() && open->objectName() == name.control)
      return {open, nullptr, open};
  throw Failure(QStringLiteral("there is no %1 on %2").arg(name.control, window->objectName()));
}

Face reach(const ControlName& name)
{
  const Face face = find(name);
  if (face.window != topWindow())
    throw Failure(QStringLiteral("%1 stands over %2").arg(topWindow()->objectName(), face.window->objectName()));
  if (!isShown(face))
    throw Failure(QStringLiteral("%1 is hidden").arg(name.text()));
  if (!isUsable(face))
    throw Failure(QStringLiteral("%1 is disabled").arg(name.text()));
  return face;
}

bool isShown(const Face& face)
{
  if (face.action)
    return face.action->isVisible();
  return face.widget->isWindow() ? face.widget->isVisible() : face.widget->isVisibleTo(face.window);
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
  if (face.widget == face.window)
    return face.widget->windowTitle();
  if (const auto* list = qobject_cast<QListView*>(face.widget))
    return list->currentIndex().data().toString();
  // A date box and a drop-down have a "text", too, or one that is only shown.
  for (const char* property : {"date", "currentText", "value", "title", "text"})
    if (const QVariant value = face.widget->property(property); value.isValid())
      return value.toString();
  return {};
}

QList<QAction*> actions(const Face& face, const ControlName& name)
{
  if (!face.action)
    throw Failure(QStringLiteral("%1 is no item array").arg(name.text()));
  return face.window->findChildren<QAction*>(name.control);
}

QStringList items(const Face& face, const ControlName& name)
{
  QStringList texts;
  const QAbstractItemModel* model = nullptr;
  if (const auto* drop = qobject_cast<QComboBox*>(face.widget))
    model = drop->model();
  else if (const auto* list = qobject_cast<QListView*>(face.widget))
    model = list->model();
  else
    for (const QAction* action : actions(face, name))
      texts.append(action->text());
  for (int i = 0; model && i < model->rowCount(); ++i)
    texts.append(model->index(i, 0).data().toString());
  return texts;
}

} // namespace Widgets
