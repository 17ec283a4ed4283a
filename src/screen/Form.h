#pragma once

#include "screen/Control.h"
#include "screen/Desk.h"

#include <QList>
#include <functional>
#include <memory>

// One screen without its window: named controls and their handlers. The window finds a widget of each
// control's name; a script drives the form by the same names.
//
// Invariant: if an event of the user throws RunTimeError, its handler is abandoned, the error is shown, the
// cursor is restored and typed input is kept (see handle). So it is after ActionLost, whose error was shown.
class Form : public Control {
  Q_OBJECT

public:
  Form(Desk& desk, QAnyStringView name);

  Desk& desk() const { return m_desk; }

  // The control of that name and kind on this form; null if there is none.
  template <typename Kind = Control> Kind* find(QAnyStringView name) const { return findChild<Kind*>(name.toString()); }
  // All controls in the order of their creation, which is the tab order.
  QList<Control*> controls() const { return findChildren<Control*>(); }

  // Runs one event of the user. A RunTimeError ends it with a box, after which the cursor and whatever
  // settleAfterRunTimeError resets are restored. An event inside another (a change handler, say) is part of
  // that one, and its error ends both.
  void handle(const std::function<void()>& event);

  // The focus. Setting it on a control that is not reachable does nothing.
  Control* focused() const { return m_focused; }
  void setFocus(Control& control);
  // When the form opens: nothing is marked, so that no key changes a field unasked.
  void focusFirst();
  void focusNext() { moveFocus(1); }
  void focusPrevious() { moveFocus(-1); }

  bool isOpen() const { return m_open; }
  // Called by the desk when it shows the form.
  void opened() { m_open = true; }
  // Closes the form: onUnload runs, then the window closes.
  void close();

  // Keeps what was typed and is not stored, for the time after a death; never shows anything. The window calls it two seconds
  // after the last typedChanged.
  virtual void keepTyped() {}

signals:
  // What was typed and is not stored may be different now.
  void typedChanged();
  void focusMoved(Control* control);
  void closed();

protected:
  // Called by a dialog: Esc closes it like its exit button.
  void closeOnEscape();
  // Runs before the form closes.
  virtual void onUnload() {}
  // Hides what an aborted handler left visible, such as a waiting panel.
  virtual void settleAfterRunTimeError() {}

private:
  QList<Control*> tabStops() const;
  void moveFocus(int step);

  Desk& m_desk;
  Control* m_focused = nullptr;
  bool m_isHandling = false;
  bool m_open = false;
};
