#pragma once

#include "screen/Desk.h"
#include "screen/Key.h"

#include <QDateTime>
#include <QList>
#include <QStringList>
#include <optional>
#include <stdexcept>

// A control as a script names it: on the topmost form, or FORM.CONTROL.
struct ControlName {
  QString form; // empty for the topmost one
  QString control;

  QString text() const { return form.isEmpty() ? control : form + u'.' + control; }
};

// The word of a script for an icon.
QString iconName(Desk::Icon icon);

enum class Verb {
  // Setting up
  AccountSet,
  Clock,
  Session,
  Siblings,
  Sql,
  // Acting
  Start,
  StartWithoutParameters,
  Type,
  Key,
  Focus,
  Click,
  DoubleClick,
  Choose,
  SetDate,
  Cell,
  DoubleCell,
  Node,
  DoubleNode,
  Wheel,
  Close,
  Message,
  Ask,
  // Checking
  Form,
  Ended,
  CheckText,
  CheckState,
  Items,
  GridCell,
  GridMeasure,
  GridWidth,
  Tree,
  Expect,
  Started,
  NotStarted,
  FileContent,
  FileHas,
  FileLacks,
  FileAbsent,
  Screenshot
};

// One directive with its arguments. Which of them are set depends on the verb: see its usage line in Script.cpp.
struct Directive {
  int line = 0;
  Verb verb = Verb::Close;
  ControlName control; // NAME of a control, grid, tree or form
  QString name;        // NAME of anything else
  QString word;        // one of the words in the usage
  QString text;        // TEXT, unquoted; for boxes with line breaks as "\n"
  QStringList places;  // separated by "|"; of siblings, by spaces
  int row = -1;        // also the index of an item
  int column = -1;
  int number = 0;
  QDateTime when;
  ::Key key;
  std::optional<Desk::Icon> icon;
  QStringList lines;       // the following lines that start with ">"
  QList<QStringList> rows; // the following lines that start with "|"
};

// Why a script cannot be parsed.
struct ScriptError : std::runtime_error {
  ScriptError(int atLine, const QString& why) : std::runtime_error(why.toStdString()), line(atLine) {}
  int line;
};

// A parsed script.
struct Script {
  enum class For { Everywhere, ViewModelOnly, DesktopOnly, FileOnly };

  For playedFor = For::Everywhere;
  QList<Directive> directives;

  // Reads UTF-8 text, with or without a byte order mark, with LF or CR LF. A ScriptError at the first line that is no directive or
  // has an invalid argument.
  static Script read(const QByteArray& utf8);
};
