#pragma once

#include "desktop/WidgetBinding.h"
#include "screen/Controls.h"

class QAbstractButton;
class QListWidget;
class QProgressBar;
class QScrollBar;
class QToolButton;

// The faces that need little: labels, frames, buttons, lists, bars.

// A label, a frame with a title.
class CaptionBinding : public WidgetBinding {
  Q_OBJECT

public:
  CaptionBinding(FormWindow& window, Control& control, QWidget& face);
  void show() override;
};

// A push button, a check box or an option.
class ButtonBinding : public SelfActingBinding {
  Q_OBJECT

public:
  ButtonBinding(FormWindow& window, Control& control, QAbstractButton& face);
  void show() override;

private:
  QAbstractButton& m_button;
};

// A button with a picture beside its field. It never has the focus.
class PictureButtonBinding : public CaptionBinding {
  Q_OBJECT

public:
  PictureButtonBinding(FormWindow& window, Control& control, QToolButton& face);
  QWidget* focusWidget() const override { return nullptr; }
};

class ListBinding : public SelfActingBinding {
  Q_OBJECT

public:
  ListBinding(FormWindow& window, ListBox& control, QListWidget& face);
  void show() override;

private:
  ListBox& m_list;
  QListWidget& m_view;
};

class ProgressBinding : public WidgetBinding {
  Q_OBJECT

public:
  ProgressBinding(FormWindow& window, ProgressBar& control, QProgressBar& face);
  void show() override;

private:
  ProgressBar& m_progress;
  QProgressBar& m_bar;
};

// A bar of the scroll area around the panel. The area shows and hides it by itself; the control
// is visible with it.
class ScrollBarBinding : public Binding {
  Q_OBJECT

public:
  ScrollBarBinding(FormWindow& window, ScrollBar& control, QScrollBar& face);
  void show() override {}
};
