#include "desktop/FormWindow.h"

#include "desktop/ControlBindings.h"
#include "desktop/Keys.h"
#include "desktop/WidgetBinding.h"

#include <QCursor>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollArea>

using namespace std::chrono_literals;

FormWindow::FormWindow(Form& shownForm, const WindowDesigns& windowDesigns, QWidget* parent)
    : m_form(shownForm), m_designs(windowDesigns), m_window(m_designs.window(m_form.name(), parent))
{
  if (!m_window)
    qFatal("There is no window for the form %s.", qUtf8Printable(m_form.name()));
  m_window->setObjectName(m_form.name());
  m_window->setWindowTitle(m_form.caption());
  m_window->installEventFilter(this);
  connect(&m_form, &Control::changed, this, [this] { m_window->setWindowTitle(m_form.caption()); });
  connect(&m_form, &Form::focusMoved, this, &FormWindow::moveFocus);
  connect(&m_form, &Form::closed, this, &FormWindow::formClosed);
  m_keeping.setSingleShot(true);
  m_keeping.setInterval(2s);
  connect(&m_form, &Form::typedChanged, &m_keeping, qOverload<>(&QTimer::start));
  connect(&m_keeping, &QTimer::timeout, &m_form, &Form::keepTyped);
  bindControls();
  hideUnbound();
  setTabOrder();
  if (m_form.focused())
    moveFocus(m_form.focused());
}

FormWindow::~FormWindow()
{
  // Destroy the bindings before the widgets they observe.
  qDeleteAll(m_bindings);
}

void FormWindow::bindControls()
{
  for (Control* control : m_form.controls()) {
    Binding* const binding = bindControl(*this, *control);
    if (!binding)
      continue;
    m_bindings.insert(control, binding);
    keepInStep(*binding);
  }
}

// Forms that share a design need not have every control of it. Names that begin with a small letter are the
// window's own.
void FormWindow::hideUnbound()
{
  for (QWidget* widget : m_window->findChildren<QWidget*>())
    if (!widget->objectName().isEmpty() && widget->objectName().front().isUpper() && !m_form.find(widget->objectName()))
      widget->hide();
}

void FormWindow::keepInStep(Binding& binding)
{
  binding.show();
  Control* const control = &binding.control();
  connect(control, &Control::changed, &binding, [this, control, &binding] {
    // Contents first, so that a container appears complete.
    for (const Control* held : control->findChildren<Control*>())
      if (Binding* const inner = bindingOf(*held))
        inner->show();
    binding.show();
  });
}

void FormWindow::act(const std::function<void()>& event)
{
  const bool isOuter = !m_isActing;
  {
    const QScopedValueRollback acting(m_isActing, true);
    event();
  }
  if (isOuter && !m_closed)
    settleFocus();
}

void FormWindow::click(Control& control, QWidget* tool)
{
  const QScopedValueRollback pressed(m_pressedTool, QPointer(tool));
  act([&] { control.click(); });
}

void FormWindow::focusCameTo(Control& control, Qt::FocusReason reason)
{
  // Qt's other reasons are not the user: it moves the focus from a hidden or disabled widget, or restores it
  // when a window or a menu has closed.
  if (reason == Qt::MouseFocusReason || reason == Qt::OtherFocusReason || reason == Qt::ShortcutFocusReason)
    act([&] {
      m_form.setFocus(control);
      if (reason == Qt::ShortcutFocusReason)
        control.focusedByKey();
    });
}

void FormWindow::moveFocus(Control* control)
{
  const Binding* const binding = bindingOf(*control);
  QWidget* const widget = binding ? binding->focusWidget() : nullptr;
  if (!widget || m_window->focusWidget() == widget)
    return;
  widget->setFocus();
  // On a screen that is too small for the whole form.
  if (auto* const area = m_window->findChild<QScrollArea*>(); area && area->isAncestorOf(widget))
    area->ensureWidgetVisible(widget);
}

void FormWindow::settleFocus()
{
  Control* const focused = m_form.focused();
  if (focused && focused->isReachable())
    moveFocus(focused);
  else
    adoptFocus();
}

// The focused control became unreachable and Qt moved the focus: follow it.
void FormWindow::adoptFocus()
{
  for (Binding* binding : std::as_const(m_bindings)) {
    if (!binding->focusWidget() || binding->focusWidget() != m_window->focusWidget())
      continue;
    m_form.setFocus(binding->control());
    return;
  }
}

void FormWindow::setTabOrder()
{
  QWidget* previous = nullptr;
  for (const Control* control : m_form.controls()) {
    const Binding* const binding = control->takesFocus() ? bindingOf(*control) : nullptr;
    QWidget* const widget = binding ? binding->focusWidget() : nullptr;
    if (previous && widget)
      QWidget::setTabOrder(previous, widget);
    if (widget)
      previous = widget;
  }
}

QPoint FormWindow::popUpPlace() const
{
  return m_pressedTool ? m_pressedTool->mapToGlobal(m_pressedTool->rect().bottomLeft()) : QCursor::pos();
}

void FormWindow::formClosed()
{
  m_closed = true;
  m_keeping.stop();
  m_window->hide();
  emit closed();
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_window.get() || m_closed)
    return false;
  if (event->type() == QEvent::Close) {
    event->ignore();
    act([this] { m_form.close(); });
    return true;
  }
  if (event->type() != QEvent::KeyPress)
    return false;
  // A key that no control handled. A dialog would close, or press its default button.
  const auto key = keyOf(*static_cast<QKeyEvent*>(event));
  if (key)
    act([&] { m_form.handleKey(*key); });
  return key.has_value();
}
