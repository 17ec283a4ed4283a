#pragma once

#include "Stage.h"
#include "Widgets.h"
#include "desktop/DesktopDesk.h"

// The real windows: key and mouse events go to widgets, and what is looked at is what the widgets show.
class DesktopStage : public Stage, private DeskObserver {
public:
  explicit DesktopStage(Encounters& encounters);

  Desk& desk() override { return m_desk; }
  QString topForm() override;
  void clear() override;

  bool markText(const ControlName& name) override;
  void press(const Key& key) override;
  void focus(const ControlName& name) override;
  void click(const ControlName& name) override;
  void clickItem(const ControlName& name, int index) override;
  void doubleClick(const ControlName& name) override;
  void choose(const ControlName& name, int item) override;
  void setDate(const ControlName& name, const QDate& date) override;
  void clickCell(const ControlName& grid, int row, int column, bool twice) override;
  void clickNode(const ControlName& tree, const QString& key, bool twice) override;
  void wheel(const ControlName& grid, int step) override;
  void close() override;

  QString text(const ControlName& name) override;
  bool is(const ControlName& name, const QString& state) override;
  QStringList items(const ControlName& name) override;
  QString cell(const ControlName& grid, int row, int column) override;
  int measure(const ControlName& grid, const QString& what) override;
  int columnWidth(const ControlName& grid, int column) override;
  QStringList tree(const ControlName& name) override;
  void screenshot(const QString& path) override;

private:
  // DeskObserver
  void boxStands(QMessageBox& box) override;
  void modalStands(QWidget& window) override;

  // For acting: the window has the focus then, as under the operator's hand.
  Widgets::Face reach(const ControlName& name);
  void giveFocus(const Widgets::Face& face, const ControlName& name);

  Encounters& m_encounters;
  DesktopDesk m_desk;
};
