#pragma once

#include <QString>

#include <cstdio>

// What a kind of fault came to: tries that held and tries that did not, each of these with its reason.
class Tally {
public:
  void add(const QString& what, const QString& reason)
  {
    if (reason.isEmpty()) {
      ++m_passed;
      return;
    }
    ++m_failed;
    if (m_failed <= MostShown)
      std::printf("FAILED %s: %s\n", what.toUtf8().constData(), reason.toUtf8().constData());
    std::fflush(stdout); // a forked process would print it again
  }

  // Prints the sum, and returns the exit status.
  int close() const
  {
    std::printf("%d passed, %d failed\n", m_passed, m_failed);
    return m_failed == 0 && m_passed > 0 ? 0 : 1;
  }

private:
  static constexpr int MostShown = 20;
  int m_passed = 0;
  int m_failed = 0;
};
