#pragma once

#include "screen/Control.h"
#include "screen/Desk.h"

#include <QList>
#include <functional>
#include <memory>

// One screen without its window: named controls and what happens in them. The window shows a form
// by finding the widget of each control's name; a script drives it by the same names.
//
// Always holds: a handler that the operator's hand called and in which a RunTimeError was thrown
// has ended where it was; the box has been shown, the pointer is back and what was typed is still
// there (see handle).
class Form : public Control {
  Q_OBJECT

public:
  Form(Desk& desk, const QString& name);

  Desk& desk() const { return m_desk; }

  // The control of that name and kind on this form; null if there is none.
  template <typename Kind = Control> Kind* find(const QString& name) const { return findChild<Kind*>(name); }
  // All controls, in the order in which they were made: the order of Tab.
  QList<Control*> controls() const { return findChildren<Control*>(); }

  // Runs one event of the operator. A RunTimeError ends it with a box; the pointer and whatever
  // settleAfterRunTimeError resets go back. An event that comes up inside another (a change handler,
  // say) is part of that one, and its error ends both.
  void handle(const std::function<void()>& event);

  // The focus. Setting it on a control that is not reachable does nothing.
  Control* focused() const { return m_focused; }
  void setFocus(Control& control);
  void focusNext() { moveFocus(1); }
  void focusPrevious() { moveFocus(-1); }

  bool isOpen() const { return m_open; }
  // Called by the desk when the form comes up.
  void opened() { m_open = true; }
  // Closes the form: onUnload, then the window goes.
  void close();

signals:
  void focusMoved(Control* control);
  void closed();

protected:
  // Makes a control in its container, which owns it, under the name that the window's widget has too.
  template <typename Kind> Kind* add(Control* container, const char* name, const QString& caption = {}, const QString& toolTip = {})
  {
    Kind* const control = new Kind(container, QString::fromLatin1(name));
    control->setCaption(caption);
    control->setToolTip(toolTip);
    return control;
  }
  // Called by a dialog: Esc leaves it like its exit button.
  void closeOnEscape();
  // What the form does before it goes.
  virtual void onUnload() {}
  // Hides what an interrupted handler left open, such as a waiting panel.
  virtual void settleAfterRunTimeError() {}

private:
  void moveFocus(int step);

  Desk& m_desk;
  Control* m_focused = nullptr;
  bool m_isHandling = false;
  bool m_open = false;
};
