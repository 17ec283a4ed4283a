#pragma once

#include <QString>

#include <chrono>

// Where a database on a server is, and the login.
struct ServerAddress {
  QString driver; // as the ODBC registry of the machine names it
  QString host;
  QString port; // empty for the driver's own
  QString database;
  QString user;
  QString password;
};

// Timeouts: for connecting to a server, for a lock that another program holds, for one statement.
struct ServerWaits {
  std::chrono::milliseconds connect{5'000};
  std::chrono::milliseconds lock{10'000};
  std::chrono::milliseconds statement{120'000};
};
