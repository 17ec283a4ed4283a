#pragma once

#include "desktop/WidgetBinding.h"
#include "screen/Controls.h"

class QAbstractButton;
class QListWidget;
class QProgressBar;
class QScrollBar;
class QToolButton;

// Simple widgets: labels, frames, buttons, lists, bars.

// A label, or a frame with a title.
class CaptionBinding : public WidgetBinding {
  Q_OBJECT

public:
  CaptionBinding(FormWindow& window, Control& control, QWidget& widget);
  void show() override;
};

// A push button, a check box or an option.
class ButtonBinding : public SelfActingBinding {
  Q_OBJECT

public:
  ButtonBinding(FormWindow& window, Control& control, QAbstractButton& widget);
  void show() override;

private:
  QAbstractButton& m_button;
};

// A button with an icon beside its field. It never has the focus.
class PictureButtonBinding : public CaptionBinding {
  Q_OBJECT

public:
  PictureButtonBinding(FormWindow& window, Control& control, QToolButton& widget);
  QWidget* focusWidget() const override { return nullptr; }
};

class ListBinding : public SelfActingBinding {
  Q_OBJECT

public:
  ListBinding(FormWindow& window, ListBox& control, QListWidget& widget);
  void show() override;

private:
  ListBox& m_list;
  QListWidget& m_view;
};

class ProgressBinding : public WidgetBinding {
  Q_OBJECT

public:
  ProgressBinding(FormWindow& window, ProgressBar& control, QProgressBar& widget);
  void show() override;

private:
  ProgressBar& m_progress;
  QProgressBar& m_bar;
};

// A scroll bar of the area around the panel. The area shows and hides it; the control follows.
class ScrollBarBinding : public Binding {
  Q_OBJECT

public:
  ScrollBarBinding(FormWindow& window, ScrollBar& control, QScrollBar& widget);
  void show() override {}
};
