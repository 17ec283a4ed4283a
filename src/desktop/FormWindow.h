#pragma once

#include "desktop/WindowDesigns.h"
#include "screen/Form.h"

#include <QHash>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

class Binding;

// A form and its window. For each control of the form it finds the widget, action or menu of the same
// name and keeps the two in step; buttons of a toolbar and entries of menus that the window does not
// have it makes from the controls. A widget that the form has no control for is hidden, unless its name
// begins with a small letter: such widgets are the window's own. It decides nothing: what an event means is
// the form's business.
class FormWindow : public QObject {
  Q_OBJECT

public:
  // Ends the program if no window was designed for the form.
  FormWindow(Form& shownForm, const WindowDesigns& windowDesigns, QWidget* parent);
  ~FormWindow() override;

  Form& form() const { return m_form; }
  QWidget& window() const { return *m_window; }
  // True once the form has closed: the window is hidden, and gets no more events.
  bool isClosed() const { return m_closed; }

  // For the bindings.
  // Runs an event of the operator. After it the focus is where the form has it, or on a control that can
  // be reached.
  void act(const std::function<void()>& event);
  // The same for a click on a control; `tool` is the button of a toolbar that brought it about, if one did.
  void click(Control& control, QWidget* tool = nullptr);
  // A widget has got the focus.
  void focusCameTo(Control& control, Qt::FocusReason reason);
  // The binding of a control; null if it has no face.
  Binding* bindingOf(const Control& control) const { return m_bindings.value(&control); }
  ActionFace face(const Control& control) const { return m_designs.face(control.name()); }
  // Where a menu opens that comes up by an order of the form: under the tool button whose press is
  // under way, or at the pointer.
  QPoint popUpPlace() const;

signals:
  // The form has closed and the window is gone from the screen.
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
  bool m_isActing = false;
  bool m_closed = false;
};
