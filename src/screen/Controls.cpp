#include "screen/Controls.h"

#include "screen/Form.h"

using namespace Qt::StringLiterals;

void TextBox::setText(const QString& text)
{
  if (!change(m_text, text))
    return;
  m_anchor = m_caret = m_text.size();
  if (onChange)
    onChange();
}

void TextBox::assign(const QString& text)
{
  if (m_text != text)
    setText(text);
  else if (onChange)
    onChange();
}

void TextBox::selectAll()
{
  m_anchor = 0;
  m_caret = m_text.size();
  emit selectionWanted(true);
}

void TextBox::moveCaretToEnd()
{
  m_anchor = m_caret = m_text.size();
  emit selectionWanted(false);
}

void TextBox::typed(const QString& text)
{
  form().handle([&] { setText(asTyped(text)); });
}

void TextBox::replaceSelection(const QString& with)
{
  const qsizetype from = qMin(m_anchor, m_caret);
  const qsizetype to = qMax(m_anchor, m_caret);
  const QString text = m_text.left(from) + asTyped(with) + m_text.mid(to);
  m_anchor = m_caret = from + with.size();
  const qsizetype caret = m_caret;
  setText(text);
  if (m_text == text)
    m_anchor = m_caret = caret;
}

qsizetype TextBox::caretMoved(int step) const
{
  const qsizetype to = qBound<qsizetype>(0, m_caret + step, m_text.size());
  // Never between the two halves of a surrogate pair.
  const bool insidePair = to > 0 && to < m_text.size() && m_text[to].isLowSurrogate() && m_text[to - 1].isHighSurrogate();
  return insidePair ? to + step : to;
}

void TextBox::edit(const Key& key)
{
  const bool selected = m_anchor != m_caret;
  switch (key.code) {
  case Key::Character:
    if (!m_readOnly)
      replaceSelection(key.text);
    return;
  case Key::Backspace:
    if (!selected)
      m_anchor = caretMoved(-1);
    if (!m_readOnly)
      replaceSelection({});
    return;
  case Key::Delete:
    if (!selected)
      m_anchor = caretMoved(1);
    if (!m_readOnly)
      replaceSelection({});
    return;
  case Key::Left: m_anchor = m_caret = selected ? qMin(m_anchor, m_caret) : caretMoved(-1); return;
  case Key::Right: m_anchor = m_caret = selected ? qMax(m_anchor, m_caret) : caretMoved(1); return;
  case Key::Home: m_anchor = m_caret = 0; return;
  case Key::End: m_anchor = m_caret = m_text.size(); return;
  default: return;
  }
}

ComboBox::ComboBox(QObject* parent, QAnyStringView name) : TextBox(parent, name)
{
  setReadOnly(true);
}

void ComboBox::setEditable(bool editable)
{
  m_editable = editable;
  setReadOnly(!editable);
}

bool ComboBox::choose(const QString& item)
{
  if (!m_items.contains(item))
    return false;
  form().handle([&] {
    setText(item);
    if (onClick)
      onClick();
  });
  return true;
}

void DatePicker::setDate(const QDate& date)
{
  if (date.isValid() && change(m_date, date) && onChange)
    form().handle(onChange);
}

QString DatePicker::shownText() const
{
  return m_date.toString(u"yyyy-MM-dd"_s);
}

void CheckBox::clicked()
{
  setChecked(!m_checked);
  Control::clicked();
}

void CheckBox::edit(const Key& key)
{
  if (key.text == u" ")
    clicked();
}

void Option::clicked()
{
  const auto siblings = parent()->findChildren<Option*>(QString(), Qt::FindDirectChildrenOnly);
  for (Option* sibling : siblings)
    sibling->setChecked(sibling == this);
  Control::clicked();
}

void Button::edit(const Key& key)
{
  if (key.code == Key::Enter || key.text == u" ")
    clicked();
}

void MenuItemArray::setItem(int index, const QString& caption)
{
  while (m_captions.size() <= index)
    m_captions.append(QString());
  m_captions[index] = caption;
  emit changed();
}

bool MenuItemArray::clickItem(int index)
{
  if (index < 0 || index >= m_captions.size())
    return false;
  if (isReachable() && onItemClick)
    form().handle([&] { onItemClick(index); });
  return true;
}

void ListBox::setItems(const QStringList& items)
{
  m_items = items;
  m_index = -1;
  emit changed();
}

void ListBox::setItem(int index, const QString& text)
{
  if (index >= 0 && index < m_items.size())
    change(m_items[index], text);
}

void ListBox::select(int index)
{
  if (index < 0 || index >= m_items.size())
    return;
  m_index = index;
  emit changed();
  if (onClick)
    form().handle(onClick);
}

void ListBox::edit(const Key& key)
{
  if (key.code == Key::Up)
    select(m_index - 1);
  else if (key.code == Key::Down)
    select(m_index + 1);
  else if (key.code == Key::Home)
    select(0);
  else if (key.code == Key::End)
    select(int(m_items.size()) - 1);
}
