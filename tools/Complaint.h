#pragma once

#include <QCoreApplication>
#include <QTextStream>

// How the tools end: with one of these, and without success after a line on the standard error.
constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int WrongUse = 2;

inline int complain(const QString& text, int status)
{
  QTextStream(stderr) << QCoreApplication::applicationName() << ": " << text << "\n";
  return status;
}
