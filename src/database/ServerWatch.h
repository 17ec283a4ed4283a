#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

// Ends calls to a server's driver that would wait forever. A stopped server keeps its connection alive without
// answering, and a driver's own timeouts are enforced by the server or only while connecting. So a call gets its
// timeout here: after it, a thread shuts down the connection's sockets, again and again until the call has returned.
// The driver then finds the connection ended.
class ServerWatch {
public:
  ServerWatch();
  ~ServerWatch();
  ServerWatch(const ServerWatch&) = delete;
  ServerWatch& operator=(const ServerWatch&) = delete;

  // One call, during the lifetime of this object.
  class Call {
  public:
    Call(ServerWatch& watch, std::chrono::milliseconds limit);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

  private:
    ServerWatch& m_watch;
  };

  // The connection's sockets are those that the process opens from now until keepSockets: only the driver
  // opens any meanwhile.
  void expectSockets();
  void keepSockets();

  // True once a call had to be ended; what the server has done is unknown then.
  bool hasEndedACall() const;

private:
  using Clock = std::chrono::steady_clock;

  // A socket by a duplicate of its descriptor, which stays valid when the driver closes its own and the number is
  // reused.
  class Socket;

  void run();
  void shutDown();

  mutable std::mutex m_mutex;
  std::condition_variable m_wake;
  Clock::time_point m_limit = Clock::time_point::max();  // of the call under way
  Clock::time_point m_waking = Clock::time_point::max(); // when the thread wakes next
  bool m_hasEndedACall = false;
  bool m_isOver = false;
  bool m_isConnecting = false;
  std::vector<int> m_before; // sockets that were open before
  std::vector<Socket> m_sockets;
  std::thread m_thread;
};
