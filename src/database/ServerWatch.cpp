#include "database/ServerWatch.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

// How often a call is ended that tries again, as connecting does at the next address.
constexpr std::chrono::milliseconds Again{100};

// Descriptors of stream connections: those to a database server are among them, queries to a name server are not.
std::vector<int> openSockets()
{
  std::vector<int> found;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error)) {
    const int descriptor = std::atoi(entry.path().filename().c_str());
    int kind = 0;
    socklen_t size = sizeof kind;
    if (getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &kind, &size) == 0 && kind == SOCK_STREAM)
      found.push_back(descriptor);
  }
  return found;
}

} // namespace

class ServerWatch::Socket {
public:
  explicit Socket(int descriptor) : m_descriptor(fcntl(descriptor, F_DUPFD_CLOEXEC, 0)) {}
  Socket(Socket&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
  Socket& operator=(Socket&&) = delete;
  ~Socket()
  {
    if (m_descriptor >= 0)
      close(m_descriptor);
  }
  void shutDown() const { shutdown(m_descriptor, SHUT_RDWR); }

private:
  int m_descriptor;
};

ServerWatch::ServerWatch() : m_thread([this] { run(); }) {}

ServerWatch::~ServerWatch()
{
  {
    const std::lock_guard lock(m_mutex);
    m_isOver = true;
  }
  m_wake.notify_one();
  m_thread.join();
}

// The thread is woken only for a timeout before its next wake-up, which is rare in a sequence of statements.
ServerWatch::Call::Call(ServerWatch& watch, std::chrono::milliseconds limit) : m_watch(watch)
{
  const std::lock_guard lock(m_watch.m_mutex);
  m_watch.m_limit = Clock::now() + limit;
  if (m_watch.m_limit < m_watch.m_waking)
    m_watch.m_wake.notify_one();
}

ServerWatch::Call::~Call()
{
  const std::lock_guard lock(m_watch.m_mutex);
  m_watch.m_limit = Clock::time_point::max();
}

void ServerWatch::expectSockets()
{
  const std::lock_guard lock(m_mutex);
  m_before = openSockets();
  m_isConnecting = true;
}

void ServerWatch::keepSockets()
{
  const std::lock_guard lock(m_mutex);
  m_isConnecting = false;
  for (const int descriptor : openSockets())
    if (std::find(m_before.begin(), m_before.end(), descriptor) == m_before.end())
      m_sockets.emplace_back(descriptor);
}

bool ServerWatch::hasEndedACall() const
{
  const std::lock_guard lock(m_mutex);
  return m_hasEndedACall;
}

void ServerWatch::run()
{
  std::unique_lock lock(m_mutex);
  while (!m_isOver) {
    if (Clock::now() >= m_limit) {
      m_hasEndedACall = true;
      shutDown();
      m_waking = Clock::now() + Again;
    } else {
      m_waking = m_limit;
    }
    // Without a timeout it waits for the next call.
    if (m_waking == Clock::time_point::max())
      m_wake.wait(lock);
    else
      m_wake.wait_until(lock, m_waking);
  }
}

void ServerWatch::shutDown()
{
  if (m_isConnecting) {
    for (const int descriptor : openSockets())
      if (std::find(m_before.begin(), m_before.end(), descriptor) == m_before.end())
        shutdown(descriptor, SHUT_RDWR);
  }
  for (const Socket& socket : m_sockets)
    socket.shutDown();
}
