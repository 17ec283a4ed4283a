#pragma once

#include "spreadsheet/office/OfficeInstance.h"

#include <sys/types.h>

#include <atomic>

// The office process. It outlives this object, but not this program, however it ends, until it is let go.
class OfficeProcess {
public:
  // Folder of the office's program files; empty if it is not installed.
  static QString programFolder();
  // Without a display it shows no windows, and nobody sees a workbook.
  static bool hasDisplay();

  // Starts it; it listens on its pipe a moment later. False if it can't be started.
  bool start(const OfficeInstance& instance);
  bool isRunning();
  // Ends it at once. Any thread may call it.
  void kill();
  // Leaves it to the operator: from now on it outlives this program and has no limits.
  void letGo();
  // Waits for its end.
  void wait();

private:
  void closeWatch();

  std::atomic<pid_t> m_id = 0;
  int m_watch = -1; // the pipe to its watch
};
