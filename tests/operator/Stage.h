#pragma once

#include "Script.h"
#include "screen/Desk.h"

#include <QDate>
#include <QStringList>
#include <functional>

// What a stage calls while an event of the operator is under way and the program waits for him.
class Encounters {
public:
  virtual ~Encounters() = default;

  // A box stands there. Gives the answer to it.
  virtual Desk::Answer boxStands(const Desk::Box& box) = 0;
  // A form stands over all others and the program waits for its end. Returns when `stands` is false,
  // or when nothing more is to be played; the stage then closes the form itself.
  virtual void modalStands(const std::function<bool()>& stands) = 0;
};

// Where a script is played: on the view models, or on the real windows. It plays the operator's hand
// and eye. Every function throws Unmet, with the reason, if the control is not there; those that act
// also if the operator could not do it because the control is hidden, disabled, or on a form that is
// not the topmost one.
class Stage {
public:
  virtual ~Stage() = default;

  // The operator whom the program meets.
  virtual Desk& desk() = 0;
  // Name of the topmost form; empty if none is open.
  virtual QString topForm() = 0;
  // Closes whatever form is still open. Behind it no window knows a form any more.
  virtual void clear() = 0;

  // Acting
  // Gives a text box the focus and marks what it holds; true if it holds something. A grid takes the
  // focus alone, and what is typed is its own affair.
  virtual bool markText(const ControlName& name) = 0;
  // To the control in focus.
  virtual void press(const Key& key) = 0;
  virtual void focus(const ControlName& name) = 0;
  virtual void click(const ControlName& name) = 0;
  virtual void clickItem(const ControlName& name, int index) = 0;
  virtual void doubleClick(const ControlName& name) = 0;
  // By its place among items().
  virtual void choose(const ControlName& name, int item) = 0;
  virtual void setDate(const ControlName& name, const QDate& date) = 0;
  virtual void clickCell(const ControlName& grid, int row, int column, bool twice) = 0;
  virtual void clickNode(const ControlName& tree, const QString& key, bool twice) = 0;
  virtual void wheel(const ControlName& grid, int step) = 0;
  virtual void close() = 0;

  // Looking
  virtual QString text(const ControlName& name) = 0;
  // By the words of "check NAME is …": enabled, visible, checked, focused.
  virtual bool is(const ControlName& name, const QString& state) = 0;
  virtual QStringList items(const ControlName& name) = 0;
  virtual QString cell(const ControlName& grid, int row, int column) = 0;
  // By the words of "grid NAME …": rows, cols, row, col.
  virtual int measure(const ControlName& grid, const QString& what) = 0;
  // In twips.
  virtual int columnWidth(const ControlName& grid, int column) = 0;
  // The texts of all nodes from top to bottom, two blanks ahead for each level.
  virtual QStringList tree(const ControlName& name) = 0;
  // Saves the picture of the topmost window, if there are windows.
  virtual void screenshot(const QString& path) = 0;
};
