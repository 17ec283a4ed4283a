#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

// Ends the calls to a server's driver that would wait for ever. A server that is stopped keeps its
// connection alive and answers nothing, and a driver's own limits are kept by the server or only while
// it connects. So a call gets its limit here: when it is over, a thread shuts down the connection's
// sockets, again and again until the call has returned. The driver then finds the connection ended.
class ServerWatch {
public:
  ServerWatch();
  ~ServerWatch();
  ServerWatch(const ServerWatch&) = delete;
  ServerWatch& operator=(const ServerWatch&) = delete;

  // One call, from here to the end of this.
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

  // True once a call had to be ended; nothing is known then about what the server has done.
  bool hasEndedACall() const;

private:
  using Clock = std::chrono::steady_clock;

  // A socket by a descriptor of its own, which stays when the driver closes his and its number is used again.
  class Socket;

  void run();
  void shutDown();

  mutable std::mutex m_mutex;
  std::condition_variable m_wake;
  Clock::time_point m_limit = Clock::time_point::max();  // of the call under way
  Clock::time_point m_waking = Clock::time_point::max(); // when the thread looks next
  bool m_hasEndedACall = false;
  bool m_isOver = false;
  bool m_isConnecting = false;
  std::vector<int> m_before; // sockets that were open before
  std::vector<Socket> m_sockets;
  std::thread m_thread;
};
