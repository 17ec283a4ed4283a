#pragma once

#include "screen/Desk.h"
#include "screen/Form.h"

#include <QList>
#include <functional>

// A user interface without windows: answers each box with the next prepared answer and records what was shown. Without a
// prepared answer it presses OK, or the button that declines.
class FakeDesk : public Desk {
public:
  QList<Answer> answers;
  QList<Box> boxes;
  QList<Form*> shown;
  // What the user does in a dialog; it stays open afterwards unless this closes it.
  std::function<void(Form&)> inDialog;
  // What the user does while the program works.
  std::function<void(Form&)> inWork;
  int beeps = 0;
  bool busy = false;

  // The texts of the boxes since the last call, one per line; empty if there was none.
  QString takeTexts();

  Answer showBox(const Box& box) override;
  void show(Form& form) override;
  void showModal(Form& form) override;
  void showDuring(Form& form, const std::function<void()>& work) override;
  void breathe() override;
  void beep() override { ++beeps; }
  void setBusy(bool isBusy) override { busy = isBusy; }
};
