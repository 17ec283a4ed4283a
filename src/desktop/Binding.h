#pragma once

#include "screen/Control.h"

#include <QObject>

class FormWindow;
class QWidget;

// One control and its face in the window, a widget or an action, kept in step: what the form sets
// shows on the face, and what the operator does to the face becomes an event of the control. Made
// and owned by the FormWindow, and gone before the control or the face is.
class Binding : public QObject {
  Q_OBJECT

public:
  Binding(FormWindow& formWindow, Control& boundControl);

  Control& control() const { return m_control; }

  // Makes the face look as the control says. Runs at start and after every change of the control
  // or of a container that holds it.
  virtual void show() = 0;
  // The widget that the focus goes to; null for a face that never has it.
  virtual QWidget* focusWidget() const { return nullptr; }

protected:
  FormWindow& formWindow() const { return m_formWindow; }

private:
  FormWindow& m_formWindow;
  Control& m_control;
};
