#pragma once

#include "desktop/Binding.h"

#include <QWidget>

class QKeyEvent;

// What an input method is asked for where a control wants Latin characters.
constexpr Qt::InputMethodHints LatinHints = Qt::ImhPreferLatin | Qt::ImhPreferNumbers;

// A control shown by a widget: enabled, visible, tool tip, focus and keys.
//
// Every key goes to the control's handlers first. A key that they do not consume reaches the widget only if
// the widget edits with it; none is passed to the parent widgets.
class WidgetBinding : public Binding {
  Q_OBJECT

public:
  WidgetBinding(FormWindow& window, Control& control, QWidget& widget);

  void show() override;
  QWidget* focusWidget() const override { return &m_widget; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

  QWidget& widget() const { return m_widget; }
  // Whether the widget edits with a key that no handler consumed.
  virtual bool editsWith(const Key& key) const
  {
    Q_UNUSED(key)
    return false;
  }
  // Passes the key to the control. True if it is consumed.
  virtual bool press(const Key& key);
  // A key that is not a Key; true if the binding handles it.
  virtual bool pressSpecial(const QKeyEvent& event)
  {
    Q_UNUSED(event)
    return false;
  }

private:
  bool keyPressed(const QKeyEvent& event);

  QWidget& m_widget;
};

// A control that handles all its keys; the widget gets none.
class SelfActingBinding : public WidgetBinding {
  Q_OBJECT

public:
  using WidgetBinding::WidgetBinding;

protected:
  bool press(const Key& key) override;
};
