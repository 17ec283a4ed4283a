#include "desktop/TextBindings.h"

#include "desktop/Appearance.h"
#include "desktop/FormWindow.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDateEdit>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyleOptionSpinBox>

using namespace Qt::StringLiterals;

namespace {

// The keys by which accounting users open the picker of a field.
bool isPickerKey(const QKeyEvent& event)
{
  const bool plainF4 = event.key() == Qt::Key_F4 && event.modifiers() == Qt::NoModifier;
  return plainF4 || (event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier);
}

// The image button that fills a field: ImgName for TxtName, ImgAccountC for TxtAccountNameC.
Control* pickerOf(const Control& box)
{
  const QString field = box.name().mid(3);
  for (const QString& name : {field, QString(field).remove(u"Name"_s)})
    if (auto* const button = box.form().find<ImageButton>(u"Img"_s + name))
      return button;
  return nullptr;
}

} // namespace

TextBinding::TextBinding(FormWindow& window, TextBox& control, QLineEdit& widget)
    : WidgetBinding(window, control, widget), m_box(control), m_edit(widget)
{
  connect(&widget, &QLineEdit::textEdited, this, [this](const QString& text) { formWindow().act([&] { m_box.typed(text); }); });
  connect(&control, &TextBox::selectionWanted, this, [&widget](bool all) { all ? widget.selectAll() : widget.end(false); });
}

void TextBinding::show()
{
  WidgetBinding::show();
  if (m_edit.isReadOnly() != m_box.isReadOnly()) {
    m_edit.setReadOnly(m_box.isReadOnly());
    // A field without a frame is transparent.
    if (m_edit.hasFrame())
      Appearance::setBackground(m_edit, m_box.isReadOnly());
  }
  m_edit.setInputMethodHints(m_box.isLatin() ? LatinHints : Qt::ImhNone);
  if (m_edit.text() == m_box.text())
    return;
  // What was typed in full width is as long in half width.
  const int caret = m_edit.text().size() == m_box.text().size() ? m_edit.cursorPosition() : int(m_box.text().size());
  m_edit.setText(m_box.text());
  m_edit.setCursorPosition(caret);
}

bool TextBinding::editsWith(const Key& key) const
{
  switch (key.code) {
  case Key::Character:
  case Key::Left:
  case Key::Right:
  case Key::Home:
  case Key::End:
  case Key::Backspace:
  case Key::Delete: return true;
  default: return false;
  }
}

bool TextBinding::pressSpecial(const QKeyEvent& event)
{
  return isPickerKey(event) && openPicker();
}

bool TextBinding::openPicker()
{
  Control* const picker = pickerOf(m_box);
  if (picker)
    formWindow().act([&] { picker->click(); });
  return picker;
}

bool TextBinding::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != &m_edit || formWindow().isClosed())
    return false;
  if (event->type() == QEvent::InputMethod)
    return commit(*static_cast<QInputMethodEvent*>(event));
  if (event->type() == QEvent::MouseButtonDblClick && m_box.onDoubleClick) {
    formWindow().act([this] { m_box.doubleClick(); });
    return true;
  }
  return WidgetBinding::eventFilter(watched, event);
}

// Text committed by an input method is offered to the handlers character by character, as if typed.
bool TextBinding::commit(const QInputMethodEvent& event)
{
  QString kept;
  formWindow().act([&] {
    for (const char32_t letter : event.commitString().toUcs4()) {
      const QString text = QString::fromUcs4(&letter, 1);
      if (!m_box.handleKey(Key::character(text)))
        kept += text;
    }
  });
  if (kept == event.commitString())
    return false;
  QInputMethodEvent rest;
  rest.setCommitString(kept);
  m_edit.removeEventFilter(this);
  QCoreApplication::sendEvent(&m_edit, &rest);
  m_edit.installEventFilter(this);
  return true;
}

ComboBinding::ComboBinding(FormWindow& window, ComboBox& control, QComboBox& widget)
    : WidgetBinding(window, control, widget), m_box(control), m_drop(widget)
{
  widget.setEditable(control.isEditable());
  widget.setInsertPolicy(QComboBox::NoInsert);
  connect(&widget, &QComboBox::textActivated, this, [this](const QString& text) {
    formWindow().act([&] { m_box.choose(text); });
    show();
  });
  if (!control.isEditable())
    return;
  widget.setCompleter(nullptr);
  connect(&control, &TextBox::selectionWanted, widget.lineEdit(), &QLineEdit::selectAll);
  connect(widget.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { formWindow().act([&] { m_box.typed(text); }); });
}

void ComboBinding::show()
{
  WidgetBinding::show();
  const QSignalBlocker silent(m_drop);
  showItems();
  if (m_drop.currentText() == m_box.text())
    return;
  m_drop.setCurrentIndex(m_drop.findText(m_box.text(), Qt::MatchExactly));
  if (m_box.isEditable())
    m_drop.setEditText(m_box.text());
}

void ComboBinding::showItems()
{
  QStringList wanted = m_box.items();
  // A text that is not among the items is shown too.
  if (!m_box.isEditable() && !m_box.text().isEmpty() && !wanted.contains(m_box.text()))
    wanted.append(m_box.text());
  QStringList there;
  for (int i = 0; i < m_drop.count(); ++i)
    there.append(m_drop.itemText(i));
  if (there == wanted)
    return;
  m_drop.clear();
  m_drop.addItems(wanted);
  m_drop.setCurrentIndex(-1);
}

bool ComboBinding::editsWith(const Key& key) const
{
  return key.code != Key::Enter && key.code != Key::Escape;
}

DateBinding::DateBinding(FormWindow& window, DatePicker& control, QDateEdit& widget)
    : WidgetBinding(window, control, widget), m_picker(control), m_edit(widget)
{
  widget.setDisplayFormat(u"yyyy-MM-dd"_s);
  widget.setCalendarPopup(true);
  connect(&widget, &QDateEdit::dateChanged, this, [this](QDate date) { formWindow().act([&] { m_picker.setDate(date); }); });
  connect(&control, &DatePicker::markWanted, this, [&widget] { widget.setSelectedSection(widget.sectionAt(0)); });
}

void DateBinding::show()
{
  WidgetBinding::show();
  const QSignalBlocker silent(m_edit);
  if (m_edit.date() != m_picker.date())
    m_edit.setDate(m_picker.date());
}

bool DateBinding::isHalfTyped() const
{
  return m_edit.text() != m_edit.date().toString(m_edit.displayFormat());
}

bool DateBinding::eventFilter(QObject* watched, QEvent* event)
{
  const bool handled = WidgetBinding::eventFilter(watched, event);
  if (watched != &m_edit || handled)
    return handled;
  if (event->type() == QEvent::FocusIn) {
    takeFocusQuietly();
    return true;
  }
  // The widget would complete it: 1 of a month 12 to January.
  if (event->type() == QEvent::FocusOut && isHalfTyped())
    m_edit.setDate(m_edit.date());
  return false;
}

// Unless the mouse gives it the focus, the widget marks the year, also when its window comes to the front again: one
// stray digit would change it.
void DateBinding::takeFocusQuietly()
{
  QFocusEvent quiet(QEvent::FocusIn, Qt::MouseFocusReason);
  m_edit.removeEventFilter(this);
  QCoreApplication::sendEvent(&m_edit, &quiet);
  m_edit.installEventFilter(this);
}

bool DateBinding::press(const Key& key)
{
  if (key.code != Key::Escape || !isHalfTyped())
    return WidgetBinding::press(key);
  m_edit.setDate(m_edit.date());
  return true;
}

bool DateBinding::editsWith(const Key& key) const
{
  return key.code != Key::Enter && key.code != Key::Escape;
}

bool DateBinding::pressSpecial(const QKeyEvent& event)
{
  if (!isPickerKey(event))
    return false;
  openCalendar();
  return true;
}

// QDateEdit has no function that opens its calendar: click its arrow.
void DateBinding::openCalendar()
{
  QStyleOptionComboBox option;
  option.initFrom(&m_edit);
  option.editable = true;
  const QRect arrow = m_edit.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &m_edit);
  const QPointF at = arrow.center();
  QMouseEvent press(QEvent::MouseButtonPress, at, m_edit.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&m_edit, &press);
}
