#pragma once

#include "Stage.h"
#include "screen/Form.h"

#include <QList>

// The view models alone, with no window: the operator's events are calls of the controls.
class ModelStage : public Stage, private Desk {
public:
  explicit ModelStage(Encounters& encounters) : m_encounters(encounters) {}

  Desk& desk() override { return *this; }
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
  void screenshot(const QString&) override {}

private:
  // Desk
  Answer ask(const Box& box) override { return m_encounters.boxStands(box); }
  void show(Form& form) override;
  void showModal(Form& form) override;
  void showDuring(Form& form, const std::function<void()>& work) override;
  void breathe() override {}
  void beep() override {}
  void setBusy(bool) override {}

  Form& top();
  Form& form(const ControlName& name);
  // The control for looking at.
  Control& find(const ControlName& name);
  template <typename Kind> Kind& find(const ControlName& name, const char* kind);
  // The control for acting on.
  Control& reach(const ControlName& name);
  template <typename Kind> Kind& reach(const ControlName& name, const char* kind);
  // Acting on a control gives it the focus if it takes one.
  void giveFocus(Control& control);

  Encounters& m_encounters;
  QList<Form*> m_forms; // the topmost last
};
