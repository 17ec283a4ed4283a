#pragma once

#include "screen/Controls.h"

// If the key is Enter, moves the focus to the next field and returns true.
bool moveOnAtEnter(const Control& control, const Key& key);

// A text box in which Enter moves to the next field. If `allowed` is not empty, only its characters are accepted.
class EntryBox : public TextBox {
  Q_OBJECT

public:
  EntryBox(QObject* parent, QAnyStringView name, const QString& allowed = {});
};

// The image button beside a field that lets the user pick its value.
class PickButton : public ImageButton {
  Q_OBJECT

public:
  PickButton(QObject* parent, QAnyStringView name, std::function<void()> pick);
};
