#pragma once

#include "Script.h"

#include <QAction>
#include <QWidget>

// The program's windows as a user sees them, found by the names of forms and controls. Knows no view model. Every function
// throws a Failure if there is no such form or control.
namespace Widgets {

// What shows a control: a widget, or the action of a toolbar button or menu item.
struct Face {
  QWidget* widget = nullptr; // null for an action
  QAction* action = nullptr;
  QWidget* window = nullptr;
};

// The window of the topmost form; null if none is open.
QWidget* topWindow();
// The windows of all open forms.
QList<QWidget*> windows();

Face find(const ControlName& name);
// For acting: visible, enabled, and in the topmost window.
Face reach(const ControlName& name);

// The actions of an item array, by their index.
QList<QAction*> actions(const Face& face, const ControlName& name);

bool isShown(const Face& face);
bool isUsable(const Face& face);
bool isFocused(const Face& face);
QString text(const Face& face);
QStringList items(const Face& face, const ControlName& name);

} // namespace Widgets
