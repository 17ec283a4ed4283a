#pragma once

#include "ui_BillFoot.h"
#include "ui_BillHead.h"
#include "ui_BillPartner.h"
#include "ui_BillTotal.h"
#include "ui_LoadingPanel.h"

// Parts of a window that the bill screens share. Each has a design of its own, and a screen's design
// holds it as one widget.

template <typename Design, typename Base> class Block : public Base {
public:
  explicit Block(QWidget* parent) : Base(parent) { m_design.setupUi(this); }

protected:
  Design m_design;
};

// The trading partner, the salesman and the memo.
using BillPartner = Block<Ui::BillPartner, QGroupBox>;
// Maker, auditor, and what else happens at a save.
using BillFoot = Block<Ui::BillFoot, QWidget>;
// The total.
using BillTotal = Block<Ui::BillTotal, QGroupBox>;

// Title, state, date, currency and code of the bill.
class BillHead : public Block<Ui::BillHead, QWidget> {
public:
  explicit BillHead(QWidget* parent);
};

// Lies over the middle of the screen while the program works. It is painted at once, because the
// work lets no event through.
class LoadingPanel : public Block<Ui::LoadingPanel, QFrame> {
public:
  using Block::Block;

protected:
  void showEvent(QShowEvent* event) override;
};
