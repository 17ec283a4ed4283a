#pragma once

#include <string>

// The tests' own program as one that has an office and is killed: it reports on its output when it has opened a
// workbook, and hands it over first if `what` is "handed-over".
inline const std::string holdOffice = "--hold-office";
int hold(const std::string& what);
