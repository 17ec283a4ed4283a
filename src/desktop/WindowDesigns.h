#pragma once

#include <QString>
#include <memory>

class QWidget;

// What a tool button or menu item looks like beyond its caption.
struct ActionFace {
  QStringView icon = {};     // name of a picture, see Icons
  QStringView shortcut = {}; // the key that presses it from anywhere in the window
  bool startsGroup = false;  // a line separates it from those before
};

// What the shell asks of whoever designed the windows. The shell itself knows no form.
struct WindowDesigns {
  // A new window for the form of this name, over `parent` if there is one; null if none was designed. Forms
  // may share a design: what a form has no control for is hidden.
  std::unique_ptr<QWidget> (*window)(const QString& form, QWidget* parent);
  // The face of the tool button or menu item of this name.
  ActionFace (*face)(const QString& control);
};
