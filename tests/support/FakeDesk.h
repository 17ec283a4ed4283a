#pragma once

#include "screen/Desk.h"
#include "screen/Form.h"

#include <QList>
#include <functional>

// An operator who answers each box with the next of his prepared answers and remembers what he was
// shown. Without a prepared answer he presses OK, or the button that declines.
class FakeDesk : public Desk {
public:
  QList<Answer> answers;
  QList<Box> boxes;
  QList<Form*> shown;
  // What the operator does in a dialog; the dialog stays open behind it if he does not close it.
  std::function<void(Form&)> inDialog;
  // What he does while the program works.
  std::function<void(Form&)> inWork;
  int beeps = 0;
  bool busy = false;

  // The texts of the boxes since the last call, one a line; empty if none came.
  QString takeTexts();

  Answer ask(const Box& box) override;
  void show(Form& form) override;
  void showModal(Form& form) override;
  void showDuring(Form& form, const std::function<void()>& work) override;
  void breathe() override;
  void beep() override { ++beeps; }
  void setBusy(bool isBusy) override { busy = isBusy; }
};
