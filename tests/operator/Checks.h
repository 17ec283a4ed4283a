#pragma once

#include "Driver.h"
#include "Environment.h"
#include "Script.h"

// The directives that check the screen, the account set and the program folder.
class Checks {
public:
  Checks(Environment& environment, Driver& driver) : m_environment(environment), m_driver(driver) {}

  // A Failure if the grid has no such row or column.
  static void requireCell(const GridFace& grid, const Directive& directive);

  static bool isCheck(Verb verb) { return verb >= Verb::Form && verb <= Verb::FileAbsent; }

  // A Failure with what was expected and what was there.
  void perform(const Directive& directive);

private:
  void checkGrid(const Directive& directive);
  void checkState(const Directive& directive);
  void checkRows(const Directive& directive);
  void checkStarted(const Directive& directive);
  void checkNotStarted();
  void checkFileContent(const Directive& directive);
  void checkFileLine(const Directive& directive, bool has);
  QStringList linesOf(const QString& name) const;

  Environment& m_environment;
  Driver& m_driver;
};
