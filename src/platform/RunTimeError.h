#pragma once

#include <QString>
#include <stdexcept>

// Thrown when a recordset that did not open or a field that does not exist is read, for an impossible date and for an
// overflowing amount. Before a screen is shown it ends the program; once one is shown, the operator's event in which
// it happened shows it and ends (see screen/Form.h).
class RunTimeError : public std::runtime_error {
public:
  // The numbers are those that operators quote to the help desk.
  enum Number {
    Overflow = 6,
    OutOfBounds = 9,
    TypeMismatch = 13,
    PathFileAccess = 75,
    NoSpreadsheet = 429,
    Automation = 440,
    NoCurrentRecord = 3021,
    NoSuchField = 3265,
    Closed = 3704,
    NoSuchNode = 35601,
    NodeNotUnique = 35602
  };

  RunTimeError(Number number, const QString& description)
      : std::runtime_error(description.toStdString()), m_number(number), m_description(description)
  {
  }

  Number number() const { return m_number; }
  // The text of the box: number, line break, description.
  QString text() const;

private:
  Number m_number;
  QString m_description;
};

// Thrown when nothing of what an action wrote could be stored. The error has been shown; the event ends like one with a
// run-time error, and what was typed remains.
class ActionLost : public std::exception {};
