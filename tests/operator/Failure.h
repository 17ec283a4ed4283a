#pragma once

#include <QString>
#include <stdexcept>

// Why a directive fails. The player throws and catches it without a handler of the program in between.
struct Failure : std::runtime_error {
  explicit Failure(const QString& reason) : std::runtime_error(reason.toStdString()) {}
  QString reason() const { return QString::fromUtf8(what()); }
};
