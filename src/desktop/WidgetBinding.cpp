#include "desktop/WidgetBinding.h"

#include "desktop/FormWindow.h"
#include "desktop/Keys.h"
#include "screen/Form.h"

#include <QKeyEvent>

Binding::Binding(FormWindow& formWindow, Control& boundControl) : QObject(&formWindow), m_formWindow(formWindow), m_control(boundControl) {}

WidgetBinding::WidgetBinding(FormWindow& window, Control& control, QWidget& face) : Binding(window, control), m_face(face)
{
  face.installEventFilter(this);
  if (!control.toolTip().isEmpty())
    face.setToolTip(control.toolTip());
}

void WidgetBinding::show()
{
  // The states that the operator sees: the window may hold its widgets in other containers than the
  // form does its controls.
  m_face.setEnabled(control().isUsable());
  if (m_face.isHidden() == control().isShown())
    m_face.setVisible(control().isShown());
}

bool WidgetBinding::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != &m_face || formWindow().isClosed())
    return false;
  switch (event->type()) {
  case QEvent::KeyPress: return keyPressed(*static_cast<QKeyEvent*>(event));
  case QEvent::FocusIn: formWindow().focusCameTo(control(), static_cast<QFocusEvent*>(event)->reason()); return false;
  case QEvent::Wheel:
    // Values do not change under the pointer of someone who only scrolls past.
    if (m_face.hasFocus() || (m_face.focusPolicy() & Qt::ClickFocus) == 0)
      return false;
    event->ignore();
    return true;
  default: return false;
  }
}

bool WidgetBinding::keyPressed(const QKeyEvent& event)
{
  const auto key = keyOf(event);
  if (!key)
    return pressSpecial(event);
  bool usedUp = false;
  formWindow().act([&] { usedUp = press(*key); });
  return usedUp || !editsWith(*key);
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
