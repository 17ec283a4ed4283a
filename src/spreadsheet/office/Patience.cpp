#include "spreadsheet/office/Patience.h"

namespace {

// How late a wait may be given up. Calls that are answered do not wake the thread.
constexpr std::chrono::milliseconds LookEvery{100};

} // namespace

Patience::Patience(std::chrono::milliseconds limit, std::function<void()> giveUp)
    : m_limit(limit), m_giveUp(std::move(giveUp)), m_thread([this] { watch(); })
{
}

Patience::~Patience()
{
  {
    const std::lock_guard lock(m_mutex);
    m_isOver = true;
  }
  m_ended.notify_one();
  m_thread.join();
}

void Patience::setDeadline(std::optional<Clock::time_point> deadline)
{
  const std::lock_guard lock(m_mutex);
  m_deadline = deadline;
}

void Patience::watch()
{
  std::unique_lock lock(m_mutex);
  while (!m_ended.wait_for(lock, LookEvery, [this] { return m_isOver; }))
    if (m_deadline && Clock::now() > *m_deadline)
      m_giveUp();
}
