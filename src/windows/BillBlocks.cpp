#include "windows/BillBlocks.h"

#include "desktop/Appearance.h"

BillHead::BillHead(QWidget* parent) : Block(parent)
{
  Appearance::stamp(*m_design.LabState);
  // The date that the bill was stored with is shown behind the picker as plain text.
  Appearance::blend(*m_design.TxtDate);
}

void LoadingPanel::showEvent(QShowEvent* event)
{
  QFrame::showEvent(event);
  adjustSize();
  const QRect around = parentWidget()->rect();
  move(around.center() - rect().center());
  raise();
  repaint();
}
