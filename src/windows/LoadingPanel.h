#pragma once

#include <QFrame>

// Lies over the middle of its window while the program works. It is painted at once, because the event
// loop does not run meanwhile.
class LoadingPanel : public QFrame {
public:
  using QFrame::QFrame;

protected:
  void showEvent(QShowEvent* event) override;
};
