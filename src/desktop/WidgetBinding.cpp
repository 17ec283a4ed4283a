#include "desktop/WidgetBinding.h"

#include "desktop/FormWindow.h"
#include "desktop/Keys.h"
#include "screen/Form.h"

#include <QKeyEvent>

Binding::Binding(FormWindow& formWindow, Control& boundControl) : QObject(&formWindow), m_formWindow(formWindow), m_control(boundControl) {}

WidgetBinding::WidgetBinding(FormWindow& window, Control& control, QWidget& widget) : Binding(window, control), m_widget(widget)
{
  widget.installEventFilter(this);
  // Qt gives such a widget the focus before it delivers the turn, and the field changes.
  if (widget.focusPolicy() == Qt::WheelFocus)
    widget.setFocusPolicy(Qt::StrongFocus);
  if (!control.toolTip().isEmpty())
    widget.setToolTip(control.toolTip());
}

void WidgetBinding::show()
{
  // The effective states: a widget may lie in other containers than its control does in the form.
  m_widget.setEnabled(control().isUsable());
  if (m_widget.isHidden() == control().isShown())
    m_widget.setVisible(control().isShown());
}

bool WidgetBinding::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != &m_widget || formWindow().isClosed())
    return false;
  switch (event->type()) {
  case QEvent::KeyPress: return keyPressed(*static_cast<QKeyEvent*>(event));
  case QEvent::FocusIn: formWindow().focusCameTo(control(), static_cast<QFocusEvent*>(event)->reason()); return false;
  case QEvent::Wheel:
    // Scrolling past an unfocused field must not change it.
    if (m_widget.hasFocus() || (m_widget.focusPolicy() & Qt::ClickFocus) == 0)
      return false;
    event->ignore();
    return true;
  default: return false;
  }
}

bool WidgetBinding::keyPressed(const QKeyEvent& event)
{
  const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
  if (isTab && event.modifiers() & Qt::ControlModifier) {
    formWindow().act([&] { control().leave(event.modifiers() & Qt::ShiftModifier); });
    return true;
  }
  const auto key = keyOf(event);
  if (!key)
    return pressSpecial(event);
  bool consumed = false;
  formWindow().act([&] { consumed = key->ctrl ? control().handleKey(*key) : press(*key); });
  if (key->ctrl)
    return consumed || pressSpecial(event);
  return consumed || !editsWith(*key);
}

bool WidgetBinding::press(const Key& key)
{
  return control().handleKey(key);
}

bool SelfActingBinding::press(const Key& key)
{
  control().press(key);
  return true;
}
