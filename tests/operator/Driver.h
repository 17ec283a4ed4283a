#pragma once

#include "Script.h"
#include "screen/Desk.h"

#include <QDate>
#include <QStringList>
#include <functional>
#include <memory>

// Called by a driver while the program waits for the user in the middle of an action.
class DriverEvents {
public:
  virtual ~DriverEvents() = default;

  // A box is open. Returns the answer to it.
  virtual Desk::Answer boxOpened(const Desk::Box& box) = 0;
  // A modal form is open. Returns when `isOpen` is false, or when no more directives are played; then the driver closes the form.
  virtual void modalOpened(const std::function<bool()>& isOpen) = 0;
};

// What a grid shows, the header row and the header column counted.
struct GridFace {
  int rows;
  int cols;
  int row; // the current cell
  int col;
  std::function<QString(int row, int column)> text;
  std::function<int(int column)> width; // in twips
};

// Acts and looks in the user's place, on the view models or in the real windows. Every function throws a Failure if the control
// does not exist; those that act also if the user could not: the control is hidden, disabled, or not on the topmost form.
class Driver {
public:
  static std::unique_ptr<Driver> ofModels(DriverEvents& events);
  static std::unique_ptr<Driver> ofWindows(DriverEvents& events);

  virtual ~Driver() = default;

  // The program's user interface.
  virtual Desk& desk() = 0;
  // Name of the topmost form; empty if none is open.
  virtual QString topForm() = 0;
  // Closes all open forms. Afterwards no window refers to a form.
  virtual void clear() = 0;

  // Acting
  // Focuses a text box and selects its text; true if it has text. A grid is only focused and decides itself what typing does.
  virtual bool selectText(const ControlName& name) = 0;
  // To the focused control.
  virtual void press(const Key& key) = 0;
  virtual void focus(const ControlName& name) = 0;
  virtual void click(const ControlName& name) = 0;
  virtual void clickItem(const ControlName& name, int index) = 0;
  virtual void doubleClick(const ControlName& name) = 0;
  // By its index in items().
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
  virtual GridFace grid(const ControlName& name) = 0;
  // The texts of all nodes from top to bottom, indented by two spaces for each level.
  virtual QStringList tree(const ControlName& name) = 0;
  // Saves a picture of the topmost window, if there are windows.
  virtual void screenshot(const QString& path) = 0;
};
