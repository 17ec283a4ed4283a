#include "desktop/DesktopDesk.h"

#include "desktop/FormWindow.h"

#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>

namespace {

struct ButtonFace {
  QMessageBox::StandardButton button;
  Desk::Answer answer;
  const char16_t* text;
};

constexpr ButtonFace ButtonFaces[] = {
    {QMessageBox::Ok, Desk::Answer::Ok, u"确定"},
    {QMessageBox::Cancel, Desk::Answer::Cancel, u"取消"},
    {QMessageBox::Yes, Desk::Answer::Yes, u"是(&Y)"},
    {QMessageBox::No, Desk::Answer::No, u"否(&N)"},
};

QMessageBox::StandardButtons buttonsOf(Desk::Buttons buttons)
{
  switch (buttons) {
  case Desk::Buttons::Ok: break;
  case Desk::Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
  case Desk::Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
  }
  return QMessageBox::Ok;
}

// The button that closing the box stands for.
QMessageBox::StandardButton closingButton(Desk::Buttons buttons)
{
  switch (buttons) {
  case Desk::Buttons::Ok: break;
  case Desk::Buttons::OkCancel: return QMessageBox::Cancel;
  case Desk::Buttons::YesNo: return QMessageBox::No;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(Desk::Icon icon)
{
  switch (icon) {
  case Desk::Icon::None: break;
  case Desk::Icon::Information: return QMessageBox::Information;
  case Desk::Icon::Question: return QMessageBox::Question;
  case Desk::Icon::Warning: return QMessageBox::Warning;
  case Desk::Icon::Stop: return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

void dress(QMessageBox& box, const Desk::Box& asked)
{
  box.setWindowTitle(asked.title);
  box.setTextFormat(Qt::PlainText);
  box.setText(asked.text);
  box.setIcon(iconOf(asked.icon));
  box.setStandardButtons(buttonsOf(asked.buttons));
  for (const ButtonFace& face : ButtonFaces)
    if (QAbstractButton* const button = box.button(face.button))
      button->setText(QString::fromUtf16(face.text));
  box.setDefaultButton(asked.buttons == Desk::Buttons::YesNo ? QMessageBox::Yes : QMessageBox::Ok);
  box.setEscapeButton(closingButton(asked.buttons));
}

// Who asked stands in front again when the box or the dialog is gone, beside other windows too.
class Front {
public:
  explicit Front(QWidget* window) : m_window(window) {}
  ~Front()
  {
    if (m_window && m_window->isVisible())
      m_window->activateWindow();
  }
  Q_DISABLE_COPY(Front)

private:
  QPointer<QWidget> m_window;
};

} // namespace

DesktopDesk::DesktopDesk(const WindowDesigns& designs, DeskObserver* observer) : m_designs(designs), m_observer(observer) {}

DesktopDesk::~DesktopDesk() = default;

QWidget* DesktopDesk::topWindow() const
{
  for (auto window = m_windows.rbegin(); window != m_windows.rend(); ++window)
    if (!(*window)->isClosed())
      return &(*window)->window();
  return nullptr;
}

Desk::Answer DesktopDesk::ask(const Box& asked)
{
  const Front front(topWindow());
  QMessageBox box(topWindow());
  dress(box, asked);
  // Whoever is asked something does not see the pointer of a program that works.
  const bool wasBusy = m_isBusy;
  setBusy(false);
  if (m_observer)
    QTimer::singleShot(0, &box, [&] { m_observer->boxStands(box); });
  const int pressed = box.exec();
  setBusy(wasBusy);
  for (const ButtonFace& face : ButtonFaces)
    if (face.button == pressed)
      return face.answer;
  return Answer::Ok;
}

FormWindow& DesktopDesk::open(Form& form, QWidget* parent)
{
  m_windows.push_back(std::make_unique<FormWindow>(form, m_designs, parent));
  form.opened();
  if (!form.focused())
    form.focusNext();
  return *m_windows.back();
}

bool DesktopDesk::bringToFront(const Form& form)
{
  const auto at =
      std::find_if(m_windows.begin(), m_windows.end(), [&](const auto& one) { return !one->isClosed() && &one->form() == &form; });
  if (at == m_windows.end())
    return false;
  std::rotate(at, at + 1, m_windows.end());
  m_windows.back()->window().raise();
  m_windows.back()->window().activateWindow();
  return true;
}

void DesktopDesk::show(Form& form)
{
  if (bringToFront(form))
    return;
  FormWindow& opened = open(form, nullptr);
  // The window may be in the middle of the very event that closes it, and goes when that is over.
  QObject::connect(&opened, &FormWindow::closed, &opened, [this, &opened] { take(opened).release()->deleteLater(); });
  opened.window().show();
}

std::unique_ptr<FormWindow> DesktopDesk::take(FormWindow& window)
{
  const auto at = std::find_if(m_windows.begin(), m_windows.end(), [&](const auto& one) { return one.get() == &window; });
  std::unique_ptr<FormWindow> taken = std::move(*at);
  m_windows.erase(at);
  return taken;
}

void DesktopDesk::showModal(Form& form)
{
  const Front front(topWindow());
  FormWindow& opened = open(form, topWindow());
  const bool wasBusy = m_isBusy;
  setBusy(false);
  QEventLoop wait;
  QObject::connect(&opened, &FormWindow::closed, &wait, &QEventLoop::quit);
  if (const QSize size = m_dialogSizes.value(form.name()); size.isValid())
    opened.window().resize(size);
  opened.window().setWindowModality(Qt::ApplicationModal);
  opened.window().show();
  if (m_observer)
    QTimer::singleShot(0, &opened, [&] { m_observer->modalStands(opened.window()); });
  if (form.isOpen())
    wait.exec();
  m_dialogSizes.insert(form.name(), opened.window().size());
  take(opened);
  setBusy(wasBusy);
}

void DesktopDesk::showDuring(Form& form, const std::function<void()>& work)
{
  const Front front(topWindow());
  FormWindow& opened = open(form, topWindow());
  const auto gone = qScopeGuard([&] {
    form.close();
    take(opened);
  });
  opened.window().setWindowModality(Qt::ApplicationModal);
  opened.window().show();
  breathe();
  work();
}

void DesktopDesk::breathe()
{
  QCoreApplication::processEvents(QApplication::activeModalWidget() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

void DesktopDesk::beep()
{
  QApplication::beep();
}

void DesktopDesk::setBusy(bool busy)
{
  if (busy == m_isBusy)
    return;
  m_isBusy = busy;
  if (busy)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}
