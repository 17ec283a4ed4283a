#pragma once

#include "screen/Control.h"

#include <QObject>

class FormWindow;
class QWidget;

// Keeps one control and its widget (or action) in the window in step: what the form sets shows on the
// widget, and what the user does to the widget becomes an event of the control. Created and owned by the
// FormWindow, and destroyed before the control and the widget.
class Binding : public QObject {
  Q_OBJECT

public:
  Binding(FormWindow& formWindow, Control& boundControl);

  Control& control() const { return m_control; }

  // Updates the widget from the control. Runs at start and after every change of the control or of one of
  // its containers.
  virtual void show() = 0;
  // The widget that gets the focus; null if it never does.
  virtual QWidget* focusWidget() const { return nullptr; }

protected:
  FormWindow& formWindow() const { return m_formWindow; }

private:
  FormWindow& m_formWindow;
  Control& m_control;
};
