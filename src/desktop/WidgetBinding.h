#pragma once

#include "desktop/Binding.h"

#include <QWidget>

class QKeyEvent;

// A control whose face is a widget: enabled, visible, tool tip, focus and keys.
//
// Every key goes to the control's handlers first. One that they do not use up reaches the widget only
// if the widget edits with it; none goes on to the widgets around it.
class WidgetBinding : public Binding {
  Q_OBJECT

public:
  WidgetBinding(FormWindow& window, Control& control, QWidget& face);

  void show() override;
  QWidget* focusWidget() const override { return &m_face; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

  QWidget& face() const { return m_face; }
  // Whether the widget's own editing has a use for a key that no handler used up.
  virtual bool editsWith(const Key& key) const
  {
    Q_UNUSED(key)
    return false;
  }
  // Gives the key to the control. True if it is used up.
  virtual bool press(const Key& key);
  // A key that the controls do not know; true if it means something to the window.
  virtual bool pressSpecial(const QKeyEvent& event)
  {
    Q_UNUSED(event)
    return false;
  }

private:
  bool keyPressed(const QKeyEvent& event);

  QWidget& m_face;
};

// A control that does itself whatever its keys do: the widget gets none of them.
class SelfActingBinding : public WidgetBinding {
  Q_OBJECT

public:
  using WidgetBinding::WidgetBinding;

protected:
  bool press(const Key& key) override;
};
