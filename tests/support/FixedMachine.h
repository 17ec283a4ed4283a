#pragma once

#include "platform/Machine.h"

#include <QStringList>

// A machine with a stopped clock and a given program folder. "Started" programs are only recorded, and only as long as
// startsPrograms is true.
class FixedMachine : public Machine {
public:
  explicit FixedMachine(QString programFolderPath) : folder(std::move(programFolderPath)) {}

  QString folder;
  QDateTime clock{QDate(2022, 6, 8), QTime(9, 0)};
  QString code = QStringLiteral("TERMINAL");
  bool startsPrograms = true;
  QStringList started;

  QDateTime now() const override { return clock; }
  QString programFolder() const override { return folder; }
  QString terminalCode() const override { return code; }
  bool startProgram(const QString& path) override
  {
    if (startsPrograms)
      started.append(path);
    return startsPrograms;
  }
};
