#include "desktop/PlainBindings.h"

#include "desktop/FormWindow.h"
#include "desktop/Icons.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

CaptionBinding::CaptionBinding(FormWindow& window, Control& control, QWidget& face) : WidgetBinding(window, control, face)
{
  if (auto* const label = qobject_cast<QLabel*>(&face))
    label->setTextFormat(Qt::PlainText);
}

void CaptionBinding::show()
{
  WidgetBinding::show();
  face().setProperty(qobject_cast<QGroupBox*>(&face()) ? "title" : "text", control().caption());
}

ButtonBinding::ButtonBinding(FormWindow& window, Control& control, QAbstractButton& face)
    : SelfActingBinding(window, control, face), m_button(face)
{
  // The form decides which options are unchecked when one is chosen.
  face.setAutoExclusive(false);
  if (auto* const push = qobject_cast<QPushButton*>(&face))
    push->setAutoDefault(false);
  connect(&face, &QAbstractButton::clicked, this, [this] {
    formWindow().click(this->control());
    show();
  });
}

void ButtonBinding::show()
{
  SelfActingBinding::show();
  m_button.setText(control().caption());
  // A text takes the key of its own letter, or none.
  if (const QKeySequence key(formWindow().face(control()).shortcut.toString()); !key.isEmpty())
    m_button.setShortcut(key);
  if (const auto* const box = qobject_cast<const CheckBox*>(&control()))
    m_button.setChecked(box->isChecked());
}

PictureButtonBinding::PictureButtonBinding(FormWindow& window, Control& control, QToolButton& face) : CaptionBinding(window, control, face)
{
  face.setFocusPolicy(Qt::NoFocus);
  face.setIcon(Icons::icon(u"pick"));
  connect(&face, &QToolButton::clicked, this, [this, &face] { formWindow().click(this->control(), &face); });
}

ListBinding::ListBinding(FormWindow& window, ListBox& control, QListWidget& face)
    : SelfActingBinding(window, control, face), m_list(control), m_view(face)
{
  connect(&face, &QListWidget::itemPressed, this,
          [this](QListWidgetItem* item) { formWindow().act([&] { m_list.select(m_view.row(item)); }); });
  connect(&face, &QListWidget::itemDoubleClicked, this, [this] { formWindow().act([this] { m_list.doubleClick(); }); });
}

void ListBinding::show()
{
  SelfActingBinding::show();
  const QSignalBlocker silent(m_view);
  const QStringList items = m_list.items();
  while (m_view.count() > items.size())
    delete m_view.takeItem(m_view.count() - 1);
  for (int i = 0; i < items.size(); ++i) {
    if (i == m_view.count())
      m_view.addItem(items[i]);
    else
      m_view.item(i)->setText(items[i]);
  }
  m_view.setCurrentRow(m_list.index());
}

ProgressBinding::ProgressBinding(FormWindow& window, ProgressBar& control, QProgressBar& face)
    : WidgetBinding(window, control, face), m_progress(control), m_bar(face)
{
  face.setRange(0, 100);
}

void ProgressBinding::show()
{
  WidgetBinding::show();
  m_bar.setValue(m_progress.value());
  // The work in progress lets no event through.
  if (m_bar.isVisible())
    m_bar.repaint();
}

ScrollBarBinding::ScrollBarBinding(FormWindow& window, ScrollBar& control, QScrollBar& face) : Binding(window, control)
{
  face.setObjectName(control.name());
  connect(&face, &QScrollBar::rangeChanged, &control, [&control](int, int maximum) { control.setVisible(maximum > 0); });
}
