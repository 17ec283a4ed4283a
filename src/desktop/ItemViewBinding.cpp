#include "desktop/ItemViewBinding.h"

#include "desktop/Appearance.h"
#include "desktop/FormWindow.h"
#include "screen/Form.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

ItemViewBinding::ItemViewBinding(FormWindow& window, Control& control, QAbstractItemView& widget, QAbstractItemModel& model)
    : SelfActingBinding(window, control, widget), m_view(widget), m_composing(*new QLineEdit(widget.viewport()))
{
  m_composing.setObjectName(u"composing"_s);
  m_composing.setFrame(false);
  m_composing.setFocusPolicy(Qt::NoFocus);
  Appearance::markAsCellEditor(m_composing);
  m_composing.hide();
  widget.setModel(&model);
  widget.viewport()->installEventFilter(this);
  widget.setEditTriggers(QAbstractItemView::NoEditTriggers);
  widget.setSelectionMode(QAbstractItemView::SingleSelection);
}

bool ItemViewBinding::eventFilter(QObject* watched, QEvent* event)
{
  if (formWindow().isClosed())
    return false;
  if (watched == &m_view && control().takesText())
    switch (event->type()) {
    case QEvent::InputMethodQuery: answer(*static_cast<QInputMethodQueryEvent*>(event)); return true;
    case QEvent::InputMethod: compose(*static_cast<const QInputMethodEvent*>(event)); return true;
    case QEvent::FocusOut: endComposing(); break;
    default: break;
    }
  if (watched != m_view.viewport())
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
  if (m_view.hasFocus())
    QGuiApplication::inputMethod()->update(Qt::ImHints | Qt::ImCursorRectangle);
}

void ItemViewBinding::answer(QInputMethodQueryEvent& query) const
{
  const QRect current = m_view.visualRect(m_view.currentIndex());
  for (unsigned bit = 1; bit != 0; bit <<= 1U) {
    const auto asked = Qt::InputMethodQuery(bit);
    if (!query.queries().testFlag(asked))
      continue;
    switch (asked) {
    case Qt::ImEnabled: query.setValue(asked, true); break;
    case Qt::ImHints: query.setValue(asked, int(inputHints())); break;
    case Qt::ImCursorRectangle: query.setValue(asked, current.translated(m_view.viewport()->pos())); break;
    default: query.setValue(asked, m_composing.inputMethodQuery(asked));
    }
  }
  query.accept();
}

void ItemViewBinding::compose(const QInputMethodEvent& event)
{
  const QString& committed = event.commitString();
  if (event.preeditString().isEmpty()) {
    endComposing();
  } else {
    m_composing.setGeometry(m_view.visualRect(m_view.currentIndex()));
    m_composing.show();
    m_composing.raise();
    QInputMethodEvent shown(event.preeditString(), event.attributes());
    QCoreApplication::sendEvent(&m_composing, &shown);
  }
  // A composition that ends because the focus has moved is abandoned.
  if (committed.isEmpty() || !m_view.hasFocus())
    return;
  formWindow().act([&] {
    control().form().setFocus(control());
    for (const char32_t letter : committed.toUcs4())
      if (Control* const focused = control().form().focused())
        focused->press(Key::character(QString::fromUcs4(&letter, 1)));
  });
}

void ItemViewBinding::endComposing()
{
  QInputMethodEvent nothing;
  QCoreApplication::sendEvent(&m_composing, &nothing);
  m_composing.hide();
}
