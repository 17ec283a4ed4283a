#pragma once

#include "desktop/WidgetBinding.h"
#include "screen/Controls.h"

class QComboBox;
class QDateEdit;
class QInputMethodEvent;
class QLineEdit;

// A text box. Typing changes the control character by character.
class TextBinding : public WidgetBinding {
  Q_OBJECT

public:
  TextBinding(FormWindow& window, TextBox& control, QLineEdit& widget);

  void show() override;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool editsWith(const Key& key) const override;
  bool pressSpecial(const QKeyEvent& event) override;
  // Opens the picker of the field; false if it has none.
  virtual bool openPicker();

private:
  bool commit(const QInputMethodEvent& event);

  TextBox& m_box;
  QLineEdit& m_edit;
};

// A drop-down, editable or not.
class ComboBinding : public WidgetBinding {
  Q_OBJECT

public:
  ComboBinding(FormWindow& window, ComboBox& control, QComboBox& widget);

  void show() override;

protected:
  bool editsWith(const Key& key) const override;

private:
  void showItems();

  ComboBox& m_box;
  QComboBox& m_drop;
};

class DateBinding : public WidgetBinding {
  Q_OBJECT

public:
  DateBinding(FormWindow& window, DatePicker& control, QDateEdit& widget);

  void show() override;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool press(const Key& key) override;
  bool editsWith(const Key& key) const override;
  bool pressSpecial(const QKeyEvent& event) override;

private:
  void openCalendar();
  void takeFocusQuietly();
  bool isHalfTyped() const;

  DatePicker& m_picker;
  QDateEdit& m_edit;
};
