#pragma once

#include "desktop/WidgetBinding.h"
#include "screen/Controls.h"

class QAbstractButton;
class QGroupBox;
class QLabel;
class QListWidget;
class QProgressBar;
class QScrollBar;
class QToolButton;

// The faces that need little: labels, frames, buttons, lists, bars.

class LabelBinding : public WidgetBinding {
  Q_OBJECT

public:
  LabelBinding(FormWindow& window, Label& control, QLabel& face);
  void show() override;

private:
  QLabel& m_label;
};

class GroupBinding : public WidgetBinding {
  Q_OBJECT

public:
  GroupBinding(FormWindow& window, Container& control, QGroupBox& face);
  void show() override;

private:
  QGroupBox& m_group;
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

// A button that never has the focus: of a toolbar, or with a picture beside its field.
class PictureButtonBinding : public WidgetBinding {
  Q_OBJECT

public:
  PictureButtonBinding(FormWindow& window, Control& control, QToolButton& face);
  void show() override;
  QWidget* focusWidget() const override { return nullptr; }

private:
  QToolButton& m_button;
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

// A bar of the scroll area around the panel. The area shows and hides it by itself; the control hears
// how far the panel overhangs.
class ScrollBarBinding : public Binding {
  Q_OBJECT

public:
  ScrollBarBinding(FormWindow& window, ScrollBar& control, QScrollBar& face);
  void show() override {}
};
