#pragma once

#include <QFrame>
#include <QGroupBox>
#include <QWidget>

// Parts of a window that the bill screens share. Each has a design of its own, and a screen's design
// holds it as one widget.

// Title, state, date, currency and code of the bill.
class BillHead : public QWidget {
  Q_OBJECT

public:
  explicit BillHead(QWidget* parent);
};

// The trading partner, the salesman and the memo.
class BillPartner : public QGroupBox {
  Q_OBJECT

public:
  explicit BillPartner(QWidget* parent);
};

// Maker, auditor, and what else happens at a save.
class BillFoot : public QWidget {
  Q_OBJECT

public:
  explicit BillFoot(QWidget* parent);
};

// The total.
class BillTotal : public QGroupBox {
  Q_OBJECT

public:
  explicit BillTotal(QWidget* parent);
};

// Stands over the middle of the screen while the program works. It is painted at once, because the
// work lets no event through.
class LoadingPanel : public QFrame {
  Q_OBJECT

public:
  explicit LoadingPanel(QWidget* parent);

protected:
  void showEvent(QShowEvent* event) override;
};
