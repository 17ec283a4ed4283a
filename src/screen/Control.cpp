#include "screen/Control.h"

#include "screen/Form.h"

Control::Control(QObject* parent, QAnyStringView name) : QObject(parent)
{
  setObjectName(name.toString());
}

Form& Control::form() const
{
  const QObject* at = this;
  while (at->parent())
    at = at->parent();
  return *qobject_cast<Form*>(const_cast<QObject*>(at));
}

bool Control::isShown() const
{
  return m_visible && (!container() || container()->isShown());
}

bool Control::isUsable() const
{
  return m_enabled && (!container() || container()->isUsable());
}

void Control::click()
{
  if (!isReachable())
    return;
  form().handle([this] {
    form().setFocus(*this);
    clicked();
  });
}

void Control::doubleClick()
{
  if (isReachable() && onDoubleClick)
    form().handle(onDoubleClick);
}

void Control::clicked()
{
  if (onClick)
    onClick();
}

bool Control::handleKey(const Key& key)
{
  bool consumed = false;
  form().handle([&] {
    if (key.ctrl) {
      consumed = onCtrlKey && onCtrlKey(key);
      return;
    }
    consumed = (onKey && onKey(key)) || (&form() != this && form().onKey && form().onKey(key));
    if (!consumed && key.code == Key::Tab) {
      leave(key.shift);
      consumed = true;
    }
  });
  return consumed;
}

void Control::leave(bool backwards)
{
  form().handle([&] { backwards ? form().focusPrevious() : form().focusNext(); });
}

void Control::press(const Key& key)
{
  if (!isReachable() || handleKey(key) || key.ctrl)
    return;
  form().handle([&] { edit(key); });
}
