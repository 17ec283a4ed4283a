#include "desktop/DesktopDesk.h"

#include "desktop/BoxDetails.h"
#include "desktop/FormWindow.h"

#include <QApplication>
#include <QEventLoop>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <ranges>

namespace {

struct BoxButton {
  QMessageBox::StandardButton button;
  Desk::Answer answer;
  QStringView text;
};

constexpr BoxButton BoxButtons[] = {
    {QMessageBox::Ok, Desk::Answer::Ok, u"确定"},
    {QMessageBox::Cancel, Desk::Answer::Cancel, u"取消"},
    {QMessageBox::Yes, Desk::Answer::Yes, u"是(&Y)"},
    {QMessageBox::No, Desk::Answer::No, u"否(&N)"},
};

struct ButtonSet {
  QMessageBox::StandardButtons all;
  QMessageBox::StandardButton first;
  QMessageBox::StandardButton closing; // the answer of a box closed without one
};

// In the order of Desk::Buttons and of Desk::Icon.
constexpr ButtonSet ButtonSets[] = {
    {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok},
    {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel},
    {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No},
};
constexpr QMessageBox::Icon BoxIcons[] = {QMessageBox::NoIcon, QMessageBox::Information, QMessageBox::Question, QMessageBox::Warning,
                                          QMessageBox::Critical};

void dress(QMessageBox& box, const Desk::Box& asked)
{
  box.setWindowTitle(asked.title);
  box.setTextFormat(Qt::PlainText);
  box.setText(asked.text);
  box.setIcon(BoxIcons[int(asked.icon)]);
  const ButtonSet& buttons = ButtonSets[int(asked.buttons)];
  box.setStandardButtons(buttons.all);
  for (const BoxButton& one : BoxButtons)
    if (QAbstractButton* const button = box.button(one.button))
      button->setText(one.text.toString());
  box.setDefaultButton(asked.isNoPreset ? QMessageBox::No : buttons.first);
  box.setEscapeButton(buttons.closing);
  if (asked.details)
    addDetails(box, asked.details);
}

// The frame that a window manager adds is unknown before the window is shown.
constexpr QSize FrameAllowance{16, 40};

// No window opens larger than its screen. A main window fills it then; a dialog takes what there is.
void fitToScreen(QWidget& window)
{
  const QSize most = window.screen()->availableSize() - FrameAllowance;
  const QSize wanted = window.size().expandedTo(window.minimumSizeHint());
  if (wanted == wanted.boundedTo(most))
    return;
  window.resize(wanted.boundedTo(most));
  if (qobject_cast<QMainWindow*>(&window))
    window.setWindowState(Qt::WindowMaximized);
}

// Reactivates the window that asked, at the end of the scope.
auto reactivateLater(QWidget* window)
{
  return qScopeGuard([asker = QPointer(window)] {
    if (asker && asker->isVisible())
      asker->activateWindow();
  });
}

} // namespace

// No busy cursor over a question.
auto DesktopDesk::pauseBusy()
{
  const bool wasBusy = m_isBusy;
  setBusy(false);
  return qScopeGuard([this, wasBusy] { setBusy(wasBusy); });
}

DesktopDesk::DesktopDesk(const WindowDesigns& designs, DeskObserver* observer) : m_designs(designs), m_observer(observer) {}

DesktopDesk::~DesktopDesk() = default;

QWidget* DesktopDesk::topWindow() const
{
  for (const auto& window : m_windows | std::views::reverse)
    if (!window->isClosed())
      return &window->window();
  return nullptr;
}

Desk::Answer DesktopDesk::showBox(const Box& asked)
{
  const auto front = reactivateLater(topWindow());
  const auto pause = pauseBusy();
  QMessageBox box(topWindow());
  dress(box, asked);
  if (m_observer)
    QTimer::singleShot(0, &box, [&] { m_observer->boxStands(box); });
  const int pressed = box.exec();
  for (const BoxButton& one : BoxButtons)
    if (one.button == pressed)
      return one.answer;
  return Answer::Ok;
}

FormWindow& DesktopDesk::open(Form& form, QWidget* parent)
{
  m_windows.push_back(std::make_unique<FormWindow>(form, m_designs, parent));
  form.opened();
  if (!form.focused())
    form.focusFirst();
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
  // The window may still be handling the event that closes it: delete it afterwards.
  QObject::connect(&opened, &FormWindow::closed, &opened, [this, &opened] { take(opened).release()->deleteLater(); });
  fitToScreen(opened.window());
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
  const auto front = reactivateLater(topWindow());
  const auto pause = pauseBusy();
  FormWindow& opened = open(form, topWindow());
  QEventLoop wait;
  QObject::connect(&opened, &FormWindow::closed, &wait, &QEventLoop::quit);
  if (const QSize size = m_dialogSizes.value(form.name()); size.isValid())
    opened.window().resize(size);
  fitToScreen(opened.window());
  opened.window().setWindowModality(Qt::ApplicationModal);
  opened.window().show();
  if (m_observer)
    QTimer::singleShot(0, &opened, [&] { m_observer->modalStands(opened.window()); });
  if (form.isOpen())
    wait.exec();
  m_dialogSizes.insert(form.name(), opened.window().size());
  take(opened);
}

void DesktopDesk::showDuring(Form& form, const std::function<void()>& work)
{
  const auto front = reactivateLater(topWindow());
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
