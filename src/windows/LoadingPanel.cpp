#include "windows/LoadingPanel.h"

void LoadingPanel::showEvent(QShowEvent* event)
{
  QFrame::showEvent(event);
  adjustSize();
  move(parentWidget()->rect().center() - rect().center());
  raise();
  repaint();
}
