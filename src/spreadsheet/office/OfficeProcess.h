#pragma once

#include "spreadsheet/office/OfficePlace.h"

#include <sys/types.h>

#include <atomic>

// The office program, running as a child of this one. It outlives this object.
class OfficeProcess {
public:
  // Folder of the office's program files; empty if it is not installed.
  static QString programFolder();
  // Without a display it shows no windows, and nobody sees a workbook.
  static bool hasDisplay();

  // It listens on its pipe a moment later. False if it can't be started.
  bool start(const OfficePlace& place);
  bool isRunning();
  // Ends it at once. Any thread may call it.
  void kill();
  // Forgets it: it is somebody else's affair.
  void letGo() { m_id = 0; }
  // Waits for its end.
  void wait();

private:
  std::atomic<pid_t> m_id = 0;
};
