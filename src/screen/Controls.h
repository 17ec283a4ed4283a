#pragma once

#include "platform/HalfWidth.h"
#include "screen/Control.h"

#include <QDate>
#include <QStringList>

// The plain controls of a form. Grid and Tree have files of their own.

// Contains other controls: a frame, a panel, a toolbar, a menu.
class Container : public Control {
  Q_OBJECT

public:
  using Control::Control;
};

class Label : public Control {
  Q_OBJECT

public:
  using Control::Control;
};

// One line of text. Setting the text fires onChange as typing does, if the text differs.
class TextBox : public Control {
  Q_OBJECT

public:
  using Control::Control;

  QString text() const { return m_text; }
  void setText(const QString& text);
  // The same for a text that is chosen or looked up: it counts as a change even if the text is
  // the same, so that dependent values are recomputed.
  void assign(const QString& text);
  // A read-only box still takes the focus.
  bool isReadOnly() const { return m_readOnly; }
  void setReadOnly(bool readOnly) { change(m_readOnly, readOnly); }

  // True for an amount or a code of Latin letters and digits: what is typed in full width becomes half-width, and input
  // methods are asked for Latin characters.
  virtual bool isLatin() const { return m_latin; }
  void setLatin(bool latin) { m_latin = latin; }

  // Selects the whole text, so that the next key replaces it.
  void selectAll();
  // Puts the caret after the last character, with nothing selected.
  void moveCaretToEnd();

  QString shownText() const override { return m_text; }
  bool takesFocus() const override { return true; }
  bool takesText() const override { return !m_readOnly; }
  void focusedByKey() override { selectAll(); }

  std::function<void()> onChange;

  // The widget reports the edited text.
  void typed(const QString& text);

signals:
  // The form wants the whole text selected, or the caret at the end.
  void selectionWanted(bool all);

protected:
  void edit(const Key& key) override;
  QString asTyped(const QString& text) const { return isLatin() ? halfWidth(text) : text; }

private:
  void replaceSelection(const QString& with);
  // The position one character after (1) or before (-1) the caret.
  qsizetype caretMoved(int step) const;

  QString m_text;
  qsizetype m_anchor = 0;
  qsizetype m_caret = 0;
  bool m_readOnly = false;
  bool m_latin = false;
};

// A drop-down. The text is one of the items, or anything typed if it is editable.
class ComboBox : public TextBox {
  Q_OBJECT

public:
  ComboBox(QObject* parent, QAnyStringView name);

  QStringList items() const { return m_items; }
  void setItems(const QStringList& items) { change(m_items, items); }
  void addItem(const QString& item) { setItems(m_items + QStringList(item)); }
  // Index of the item that the text equals; -1 if it equals none.
  int index() const { return int(m_items.indexOf(text())); }
  void setIndex(int index) { setText(m_items.value(index)); }

  bool isEditable() const { return m_editable; }
  void setEditable(bool editable);

  // The user picks an item: the text changes, then onClick runs. False if there is no such item.
  bool choose(const QString& item);

private:
  QStringList m_items;
  bool m_editable = false;
};

class DatePicker : public Control {
  Q_OBJECT

public:
  using Control::Control;

  QDate date() const { return m_date; }
  // Ignores an invalid date: the picker always holds a valid one.
  void setDate(const QDate& date);

  QString shownText() const override;
  bool takesFocus() const override { return true; }
  void focusedByKey() override { emit markWanted(); }

  std::function<void()> onChange;

signals:
  // The part of the date that is typed first is to be marked.
  void markWanted();

private:
  QDate m_date{2000, 1, 1};
};

// A check box, or one of several options in a container, of which at most one is checked.
class CheckBox : public Control {
  Q_OBJECT

public:
  using Control::Control;

  bool isChecked() const { return m_checked; }
  void setChecked(bool checked) { change(m_checked, checked); }
  bool takesFocus() const override { return true; }

protected:
  void clicked() override;
  void edit(const Key& key) override;

private:
  bool m_checked = false;
};

class Option : public CheckBox {
  Q_OBJECT

public:
  using CheckBox::CheckBox;

protected:
  void clicked() override;
};

// A push button. Enter and Space press it.
class Button : public Control {
  Q_OBJECT

public:
  using Control::Control;
  bool takesFocus() const override { return true; }

protected:
  void edit(const Key& key) override;
};

// A button with an icon, beside the field that it fills; reached by the mouse, not by Tab.
class ImageButton : public Control {
  Q_OBJECT

public:
  using Control::Control;
};

// A button of a toolbar. It never takes the focus, so the field being edited keeps it.
class ToolButton : public Control {
  Q_OBJECT

public:
  using Control::Control;
};

// A menu or submenu: a container of its items.
class Menu : public Container {
  Q_OBJECT

public:
  using Container::Container;

  // Opens the menu at the mouse pointer, or below the tool button that was pressed.
  void popUp() { emit poppedUp(); }

signals:
  void poppedUp();
};

class MenuItem : public Control {
  Q_OBJECT

public:
  using Control::Control;
};

// Menu items that share one name and one handler, distinguished by their index, which counts from 0.
class MenuItemArray : public Control {
  Q_OBJECT

public:
  using Control::Control;

  QStringList captions() const { return m_captions; }
  // Makes sure that item `index` exists, and sets its caption.
  void setItem(int index, const QString& caption);

  std::function<void(int index)> onItemClick;
  // The user clicks item `index`. False if there is none.
  bool clickItem(int index);

private:
  QStringList m_captions;
};

// A list of lines of which one may be current.
class ListBox : public Control {
  Q_OBJECT

public:
  using Control::Control;

  QStringList items() const { return m_items; }
  void setItems(const QStringList& items);
  void setItem(int index, const QString& text);
  int index() const { return m_index; }
  QString text() const { return m_items.value(m_index); }
  // The user or the form makes an item the current one; onClick runs.
  void select(int index);

  QString shownText() const override { return text(); }
  bool takesFocus() const override { return true; }

protected:
  void edit(const Key& key) override;

private:
  QStringList m_items;
  int m_index = -1;
};

class ProgressBar : public Control {
  Q_OBJECT

public:
  using Control::Control;

  // 0 to 100.
  int value() const { return m_value; }
  void setValue(int value) { change(m_value, qBound(0, value, 100)); }
  QString shownText() const override { return QString::number(m_value); }

private:
  int m_value = 0;
};

// Scrolls the panel of a form that is larger than its window. The window makes it visible only then.
class ScrollBar : public Control {
  Q_OBJECT

public:
  ScrollBar(QObject* parent, QAnyStringView name) : Control(parent, name) { setVisible(false); }
};
