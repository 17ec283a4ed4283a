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

CaptionBinding::CaptionBinding(FormWindow& window, Control& control, QWidget& widget) : WidgetBinding(window, control, widget)
{
  if (auto* const label = qobject_cast<QLabel*>(&widget))
    label->setTextFormat(Qt::PlainText);
}

void CaptionBinding::show()
{
  WidgetBinding::show();
  widget().setProperty(qobject_cast<QGroupBox*>(&widget()) ? "title" : "text", control().caption());
}

ButtonBinding::ButtonBinding(FormWindow& window, Control& control, QAbstractButton& widget)
    : SelfActingBinding(window, control, widget), m_button(widget)
{
  // The form decides which options are unchecked when one is chosen.
  widget.setAutoExclusive(false);
  if (auto* const push = qobject_cast<QPushButton*>(&widget))
    push->setAutoDefault(false);
  connect(&widget, &QAbstractButton::clicked, this, [this] {
    formWindow().click(this->control());
    show();
  });
}

void ButtonBinding::show()
{
  SelfActingBinding::show();
  m_button.setText(control().caption());
  // setText() resets the shortcut.
  if (const QKeySequence key(formWindow().actionDesign(control()).shortcut.toString()); !key.isEmpty())
    m_button.setShortcut(key);
  if (const auto* const box = qobject_cast<const CheckBox*>(&control()))
    m_button.setChecked(box->isChecked());
}

PictureButtonBinding::PictureButtonBinding(FormWindow& window, Control& control, QToolButton& widget)
    : CaptionBinding(window, control, widget)
{
  widget.setFocusPolicy(Qt::NoFocus);
  widget.setIcon(Icons::icon(u"pick"));
  connect(&widget, &QToolButton::clicked, this, [this, &widget] { formWindow().click(this->control(), &widget); });
}

ListBinding::ListBinding(FormWindow& window, ListBox& control, QListWidget& widget)
    : SelfActingBinding(window, control, widget), m_list(control), m_view(widget)
{
  connect(&widget, &QListWidget::itemPressed, this,
          [this](QListWidgetItem* item) { formWindow().act([&] { m_list.select(m_view.row(item)); }); });
  connect(&widget, &QListWidget::itemDoubleClicked, this, [this] { formWindow().act([this] { m_list.doubleClick(); }); });
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

ProgressBinding::ProgressBinding(FormWindow& window, ProgressBar& control, QProgressBar& widget)
    : WidgetBinding(window, control, widget), m_progress(control), m_bar(widget)
{
  widget.setRange(0, 100);
}

void ProgressBinding::show()
{
  WidgetBinding::show();
  m_bar.setValue(m_progress.value());
  // The event loop is blocked by the work that it reports.
  if (m_bar.isVisible())
    m_bar.repaint();
}

ScrollBarBinding::ScrollBarBinding(FormWindow& window, ScrollBar& control, QScrollBar& widget) : Binding(window, control)
{
  widget.setObjectName(control.name());
  connect(&widget, &QScrollBar::rangeChanged, &control, [&control](int, int maximum) { control.setVisible(maximum > 0); });
}
