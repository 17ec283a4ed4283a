#include "desktop/BillBlocks.h"

#include "desktop/Appearance.h"
#include "ui_BillFoot.h"
#include "ui_BillHead.h"
#include "ui_BillPartner.h"
#include "ui_BillTotal.h"
#include "ui_LoadingPanel.h"

BillHead::BillHead(QWidget* parent) : QWidget(parent)
{
  Ui::BillHead design;
  design.setupUi(this);
  Appearance::stamp(*design.LabState);
  // The date that the bill was stored with stands behind the picker as plain text.
  Appearance::blend(*design.TxtDate);
}

BillPartner::BillPartner(QWidget* parent) : QGroupBox(parent)
{
  Ui::BillPartner().setupUi(this);
}

BillFoot::BillFoot(QWidget* parent) : QWidget(parent)
{
  Ui::BillFoot().setupUi(this);
}

BillTotal::BillTotal(QWidget* parent) : QGroupBox(parent)
{
  Ui::BillTotal().setupUi(this);
}

LoadingPanel::LoadingPanel(QWidget* parent) : QFrame(parent)
{
  Ui::LoadingPanel().setupUi(this);
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
