#include "screen/EntryBox.h"

#include "screen/FilterKeyPress.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

bool moveOnAtEnter(const Control& control, const Key& key)
{
  if (key.code == Key::Enter)
    control.form().focusNext();
  return key.code == Key::Enter;
}

EntryBox::EntryBox(QObject* parent, QAnyStringView name, const QString& allowed) : TextBox(parent, name)
{
  onKey = [this, allowed](const Key& key) {
    const Key typed{key.code, asTyped(key.text), key.shift};
    return moveOnAtEnter(*this, key) || (!allowed.isEmpty() && !ModFuntion::FilterKeyPress(form().desk(), typed, allowed, true));
  };
}

PickButton::PickButton(QObject* parent, QAnyStringView name, std::function<void()> pick) : ImageButton(parent, name)
{
  setToolTip(u"点击选择"_s);
  onClick = std::move(pick);
}
