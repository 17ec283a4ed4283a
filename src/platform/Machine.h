#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

// The machine that the program runs on, as far as the program needs it: the clock, the program folder, the start of
// another program, its own identity. Tests have one whose clock is set by hand.
class Machine {
public:
  virtual ~Machine() = default;

  virtual QDateTime now() const = 0;
  QDate today() const { return now().date(); }

  // Folder of the executable, without a separator at its end unless it is a drive root ("/").
  virtual QString programFolder() const = 0;

  // Starts an executable by its full path in a normal window and does not wait for it.
  // False if it could not be started.
  virtual bool startProgram(const QString& path) = 0;

  // The text by which the suite's login identifies this machine: the same at every start, different on every machine.
  virtual QString terminalCode() const = 0;

  // A file of the program folder by its name, with one separator between the two.
  QString inProgramFolder(const QString& name) const
  {
    const QString folder = programFolder();
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
  }
};

// The machine that we run on.
class ThisMachine : public Machine {
public:
  QDateTime now() const override;
  QString programFolder() const override;
  bool startProgram(const QString& path) override;
  QString terminalCode() const override;
};
