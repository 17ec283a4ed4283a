#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

// A watchdog: a call to the office that exceeds the limit is given up from another thread, and fails.
class Patience {
public:
  using Clock = std::chrono::steady_clock;

  // `giveUp` runs in a thread of its own, repeatedly until the waiting call has returned.
  Patience(std::chrono::milliseconds limit, std::function<void()> giveUp);
  ~Patience();

  // One wait, during the lifetime of this object.
  class Turn {
  public:
    explicit Turn(Patience& patience) : m_patience(patience) { m_patience.setDeadline(Clock::now() + m_patience.m_limit); }
    ~Turn() { m_patience.setDeadline({}); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

  private:
    Patience& m_patience;
  };

private:
  void setDeadline(std::optional<Clock::time_point> deadline);
  void watch();

  const std::chrono::milliseconds m_limit;
  const std::function<void()> m_giveUp;
  std::mutex m_mutex;
  std::condition_variable m_ended;
  std::optional<Clock::time_point> m_deadline;
  bool m_isOver = false;
  std::thread m_thread;
};
