#pragma once

#include <QString>
#include <stdexcept>

// What a directive expected and did not find. Thrown by the player's own code and caught by it before
// it returns to the program, so that it never passes through a handler.
struct Unmet : std::runtime_error {
  explicit Unmet(const QString& why) : std::runtime_error(why.toStdString()) {}
  QString why() const { return QString::fromUtf8(what()); }
};
