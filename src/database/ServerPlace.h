#pragma once

#include <QString>

// Where a database on a server is, and who asks for it.
struct ServerPlace {
  QString driver; // as the ODBC registry of the machine names it
  QString host;
  QString port; // empty for the driver's own
  QString database;
  QString user;
  QString password;
};
