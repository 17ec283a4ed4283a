#pragma once

#include "desktop/WindowDesigns.h"
#include "screen/Desk.h"

#include <QHash>
#include <QSize>
#include <memory>
#include <vector>

class FormWindow;
class QMessageBox;
class QWidget;

// Test hook: called right after a box or a modal window appears, while the program waits for the user. The
// player of operator scripts acts in the user's place.
class DeskObserver {
public:
  virtual ~DeskObserver() = default;
  virtual void boxStands(QMessageBox& box) = 0;
  virtual void modalStands(QWidget& window) = 0;
};

// The Desk of real windows. Lives as long as the program, inside a QApplication. A form without a window
// design ends the program.
class DesktopDesk : public Desk {
public:
  explicit DesktopDesk(const WindowDesigns& designs, DeskObserver* observer = nullptr);
  ~DesktopDesk() override;

  void show(Form& form) override;
  void showModal(Form& form) override;
  void showDuring(Form& form, const std::function<void()>& work) override;
  void breathe() override;
  void beep() override;
  void setBusy(bool busy) override;

private:
  Answer showBox(const Box& box) override;
  // The window of the open form that was shown last; null if there is none.
  QWidget* topWindow() const;
  // Brings the window of an open form to the front; false if the form is not open.
  bool bringToFront(const Form& form);
  auto pauseBusy();
  FormWindow& open(Form& form, QWidget* parent);
  std::unique_ptr<FormWindow> take(FormWindow& window);

  const WindowDesigns m_designs;
  DeskObserver* m_observer;
  std::vector<std::unique_ptr<FormWindow>> m_windows; // the topmost last
  QHash<QString, QSize> m_dialogSizes;                // as the user left them in this run, by the forms' names
  bool m_isBusy = false;
};
