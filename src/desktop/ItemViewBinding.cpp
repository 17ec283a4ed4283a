#include "desktop/ItemViewBinding.h"

#include "desktop/FormWindow.h"

#include <QAbstractItemView>
#include <QMouseEvent>

ItemViewBinding::ItemViewBinding(FormWindow& window, Control& control, QAbstractItemView& widget, QAbstractItemModel& model)
    : SelfActingBinding(window, control, widget), m_view(widget)
{
  widget.setModel(&model);
  widget.viewport()->installEventFilter(this);
  widget.setEditTriggers(QAbstractItemView::NoEditTriggers);
  widget.setSelectionMode(QAbstractItemView::SingleSelection);
}

bool ItemViewBinding::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_view.viewport() || formWindow().isClosed())
    return SelfActingBinding::eventFilter(watched, event);
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick: {
    const auto& mouse = *static_cast<const QMouseEvent*>(event);
    mousePressed(mouse.position().toPoint(), mouse.button(), event->type() == QEvent::MouseButtonDblClick);
    return true;
  }
  case QEvent::MouseMove:
  case QEvent::MouseButtonRelease: return true;
  default: return false;
  }
}

void ItemViewBinding::showCurrent(const QModelIndex& current)
{
  if (m_view.currentIndex() == current)
    return;
  m_view.setCurrentIndex(current);
  if (current.isValid())
    m_view.scrollTo(current);
}
