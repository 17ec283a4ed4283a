#pragma once

#include "desktop/WindowDesigns.h"
#include "screen/Form.h"

#include <QHash>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

class Binding;

// A form and its window. For each control of the form it finds the widget of the same name and keeps the two
// in step; it creates menus, their entries and the buttons of toolbars from their controls. A widget that
// the form has no control for is hidden, unless its name begins with a small letter: such widgets are the
// window's own. It decides nothing: what an event means is the form's business.
class FormWindow : public QObject {
  Q_OBJECT

public:
  // Ends the program if the form has no window design.
  FormWindow(Form& shownForm, const WindowDesigns& windowDesigns, QWidget* parent);
  ~FormWindow() override;

  Form& form() const { return m_form; }
  QWidget& window() const { return *m_window; }
  // True after the form has closed: the window is hidden and ignores further events.
  bool isClosed() const { return m_closed; }

  // For the bindings.
  // Runs an event of the user. Afterwards the focus is on the form's focused control, or on another that is
  // reachable.
  void act(const std::function<void()>& event);
  // The same for a click on a control; `tool` is the tool button that was pressed, if any.
  void click(Control& control, QWidget* tool = nullptr);
  // A widget has received the focus.
  void focusCameTo(Control& control, Qt::FocusReason reason);
  // The binding of a control; null if it has no widget.
  Binding* bindingOf(const Control& control) const { return m_bindings.value(&control); }
  ActionDesign actionDesign(const Control& control) const { return m_designs.action(control.name()); }
  // Where a menu opens that the form pops up: below the tool button being pressed, or at the mouse pointer.
  QPoint popUpPlace() const;

signals:
  // The form has closed and the window is hidden.
  void closed();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void bindControls();
  void hideUnbound();
  void keepInStep(Binding& binding);
  void setTabOrder();
  void moveFocus(Control* control);
  void settleFocus();
  void adoptFocus();
  void formClosed();

  Form& m_form;
  const WindowDesigns m_designs;
  std::unique_ptr<QWidget> m_window;
  QHash<const Control*, Binding*> m_bindings;
  QPointer<QWidget> m_pressedTool;
  QTimer m_keeping; // runs since the last change of what was typed
  bool m_isActing = false;
  bool m_closed = false;
};
