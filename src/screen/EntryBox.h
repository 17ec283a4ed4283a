#pragma once

#include "screen/Controls.h"

// True, with the focus on the next field, if the key is Enter.
bool moveOnAtEnter(const Control& control, const Key& key);

// A text box in which Enter moves on; of the characters it takes only those of `allowed`, if there are any.
class EntryBox : public TextBox {
  Q_OBJECT

public:
  EntryBox(QObject* parent, const QString& name, const QString& allowed = {});
};

// The button with a picture beside a field that lets the user pick its value.
class PickButton : public ImageButton {
  Q_OBJECT

public:
  PickButton(QObject* parent, const QString& name, std::function<void()> pick);
};
