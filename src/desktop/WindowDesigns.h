#pragma once

#include <QString>
#include <memory>

class QWidget;

// What a button, tool button or menu item has beyond its caption.
struct ActionDesign {
  QStringView icon = {};     // name of a picture, see Icons
  QStringView shortcut = {}; // the key that presses it from anywhere in the window
  bool startsGroup = false;  // a line separates it from those before
};

// What the shell needs to know about forms; it knows none itself.
struct WindowDesigns {
  // Creates the window of the form of this name; null if there is no design. Forms may share a design: what a
  // form has no control for is hidden.
  std::unique_ptr<QWidget> (*window)(const QString& form, QWidget* parent);
  // The design of the tool button or menu item of this name.
  ActionDesign (*action)(const QString& control);
};
