#pragma once

#include "screen/Desk.h"
#include "screen/Key.h"

#include <QDateTime>
#include <QList>
#include <QStringList>
#include <optional>
#include <stdexcept>

// A control as a script names it: on the topmost form, or on the form that stands ahead of a point.
struct ControlName {
  QString form; // empty for the topmost one
  QString control;

  QString text() const { return form.isEmpty() ? control : form + u'.' + control; }
};

enum class Verb {
  // The scene
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

// One directive with its arguments read. Which of them are set goes by the verb; its usage line in
// Script.cpp tells.
struct Directive {
  int line = 0;
  Verb verb = Verb::Close;
  ControlName control; // NAME of a control, grid, tree or form
  QString name;        // NAME of anything else
  QString word;        // one of the words that the usage offers
  QString text;        // TEXT, unquoted; for boxes with line breaks as "\n"
  QStringList places;  // between "|"; of siblings, between blanks
  int row = -1;        // also the index of an item
  int column = -1;
  int number = 0;
  QDateTime when;
  ::Key key;
  std::optional<Desk::Icon> icon;
  QStringList lines;       // behind "> "
  QList<QStringList> rows; // between "|" of the lines behind
};

// Why a script cannot be read.
struct ScriptError : std::runtime_error {
  ScriptError(int atLine, const QString& why) : std::runtime_error(why.toStdString()), line(atLine) {}
  int line;
};

// A script that has been read: what is to be done, line by line. Reading plays nothing.
struct Script {
  enum class For { Everywhere, ViewModelOnly, DesktopOnly, FileOnly };

  For playedFor = For::Everywhere;
  QList<Directive> directives;

  // Reads UTF-8 text, with or without a mark at its start, lines ended by LF or CR LF. ScriptError
  // at the first line that is no directive or has an argument that is none.
  static Script read(const QByteArray& utf8);
};
