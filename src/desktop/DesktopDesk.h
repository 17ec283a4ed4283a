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

// Someone who looks on while the program waits for the operator, and may act in his place: the player
// of operator scripts. Called from inside the wait, just after the box or window has come up.
class DeskObserver {
public:
  virtual ~DeskObserver() = default;
  virtual void boxStands(QMessageBox& box) = 0;
  virtual void modalStands(QWidget& window) = 0;
};

// The operator at the screen: boxes, windows, beep and pointer of the desktop. One lives as long as
// the program, with an application around it. A form that has no window design stops the program.
class DesktopDesk : public Desk {
public:
  explicit DesktopDesk(const WindowDesigns& designs, DeskObserver* observer = nullptr);
  ~DesktopDesk() override;

  Answer ask(const Box& box) override;
  void show(Form& form) override;
  void showModal(Form& form) override;
  void showDuring(Form& form, const std::function<void()>& work) override;
  void breathe() override;
  void beep() override;
  void setBusy(bool busy) override;

private:
  // The window of the form that was shown last and is still open; null if there is none.
  QWidget* topWindow() const;
  // Brings the window of a form that is open already to the front; false if there is none.
  bool bringToFront(const Form& form);
  auto pauseBusy();
  FormWindow& open(Form& form, QWidget* parent);
  std::unique_ptr<FormWindow> take(FormWindow& window);

  const WindowDesigns m_designs;
  DeskObserver* m_observer;
  std::vector<std::unique_ptr<FormWindow>> m_windows; // in the order in which they came up
  QHash<QString, QSize> m_dialogSizes;                // as the operator left them in this run, by the forms' names
  bool m_isBusy = false;
};
