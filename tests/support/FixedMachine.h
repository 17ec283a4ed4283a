#pragma once

#include "platform/Machine.h"

#include <QStringList>

// A machine whose clock stands still and whose program folder is told. Programs "start" by being
// noted down, as long as startsPrograms holds.
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
