#pragma once

#include <QCoreApplication>
#include <QTextStream>

#include <optional>

// How the tools end: with one of these, and without success after a line on the standard error.
constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int WrongUse = 2;

inline int complain(const QString& text, int status)
{
  QTextStream(stderr) << QCoreApplication::applicationName() << ": " << text << "\n";
  return status;
}

// The exit status, after the answer, if the only argument asks for the help or the version.
inline std::optional<int> answerOf(const QStringList& arguments, const char* help)
{
  if (arguments == QStringList(QStringLiteral("--help")))
    QTextStream(stdout) << help << "\n";
  else if (arguments == QStringList(QStringLiteral("--version")))
    QTextStream(stdout) << QCoreApplication::applicationName() << " " << ZORVEK_VERSION << "\n";
  else
    return std::nullopt;
  return Done;
}
