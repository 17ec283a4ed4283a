#include "screen/Form.h"

#include "platform/RunTimeError.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

Form::Form(Desk& desk, QAnyStringView name) : Control(nullptr, name), m_desk(desk) {}

void Form::handle(const std::function<void()>& event)
{
  // Before a form is shown, its caller handles errors.
  if (!m_open || m_isHandling) {
    event();
    return;
  }
  const QScopedValueRollback handling(m_isHandling, true);
  const auto settle = [this] {
    settleAfterRunTimeError();
    m_desk.setBusy(false);
  };
  try {
    event();
  } catch (const RunTimeError& error) {
    settle();
    m_desk.stop(error.text());
  } catch (const ActionLost&) {
    settle();
  }
}

void Form::setFocus(Control& control)
{
  if (&control == m_focused || !control.takesFocus() || !control.isReachable())
    return;
  handle([&] {
    Control* const left = m_focused;
    m_focused = &control;
    // Notify the window even if a handler throws.
    const auto notifyWindow = qScopeGuard([this] { emit focusMoved(m_focused); });
    if (left && left->onFocusOut)
      left->onFocusOut();
    if (m_focused == &control && control.onFocusIn)
      control.onFocusIn();
  });
}

// The focused control is one of them, whatever it is.
QList<Control*> Form::tabStops() const
{
  QList<Control*> stops = controls();
  stops.removeIf([this](const Control* control) {
    return control != m_focused && (!control->takesFocus() || !control->isTabStop() || !control->isReachable());
  });
  return stops;
}

void Form::focusFirst()
{
  if (const QList<Control*> stops = tabStops(); !stops.isEmpty())
    setFocus(*stops.first());
}

void Form::moveFocus(int step)
{
  const QList<Control*> stops = tabStops();
  if (stops.isEmpty())
    return;
  const qsizetype at = m_focused ? stops.indexOf(m_focused) : (step > 0 ? -1 : 0);
  setFocus(*stops[(at + step + stops.size()) % stops.size()]);
  m_focused->focusedByKey();
}

void Form::closeOnEscape()
{
  onKey = [this](const Key& key) {
    if (key.code == Key::Escape)
      close();
    return key.code == Key::Escape;
  };
}

void Form::close()
{
  if (!m_open)
    return;
  handle([this] { onUnload(); });
  m_open = false;
  emit closed();
}
