#pragma once

#include "desktop/WidgetBinding.h"

class QAbstractItemModel;
class QAbstractItemView;
class QInputMethodEvent;
class QInputMethodQueryEvent;
class QLineEdit;

// A grid or a tree in its view. The control moves the current item; the view shows it and scrolls. The view's
// own mouse handling is switched off.
//
// An input method composes in a line of the view's own, over the current item, while the view keeps the focus: moving it
// would tear the composition apart. Only what is committed reaches the control, as if typed.
class ItemViewBinding : public SelfActingBinding {
  Q_OBJECT

public:
  ItemViewBinding(FormWindow& window, Control& control, QAbstractItemView& widget, QAbstractItemModel& model);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  // `twice` for the second press of a double click, which follows a single one.
  virtual void mousePressed(const QPoint& at, Qt::MouseButton button, bool twice) = 0;
  // Makes an item the view's current one and scrolls to it.
  void showCurrent(const QModelIndex& current);
  virtual Qt::InputMethodHints inputHints() const { return Qt::ImhNone; }

private:
  void answer(QInputMethodQueryEvent& query) const;
  void compose(const QInputMethodEvent& event);
  void endComposing();

  QAbstractItemView& m_view;
  QLineEdit& m_composing;
};
