#pragma once

#include <poll.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "support/postgres_server.h"

namespace cu::odbc::test {

// A port that accepts connections, reads all data and answers each piece with the same bytes, or not at all.
class SocketServer {
 public:
  explicit SocketServer(std::string answer) : answer_(std::move(answer)) {
    ::listen(socket_.descriptor(), 8);
    thread_ = std::thread([this] { serve(); });
  }
  ~SocketServer() {
    stop_ = true;
    thread_.join();
    for (const int each : clients_) ::close(each);
  }
  SocketServer(const SocketServer&) = delete;
  SocketServer& operator=(const SocketServer&) = delete;
  int port() const { return socket_.port(); }
  // All data received.
  std::string heard() const { return heard_; }

 private:
  void serve() {
    while (!stop_) {
      std::vector<pollfd> waiting = {{socket_.descriptor(), POLLIN, 0}};
      for (const int each : clients_) waiting.push_back({each, POLLIN, 0});
      if (::poll(waiting.data(), waiting.size(), 20) <= 0) continue;
      if (waiting[0].revents != 0) clients_.push_back(::accept(socket_.descriptor(), nullptr, nullptr));
      for (std::size_t i = 1; i < waiting.size(); ++i) {
        if (waiting[i].revents != 0) speak(waiting[i].fd);
      }
    }
  }
  void speak(int client) {
    char buffer[4096];
    const ssize_t got = ::recv(client, buffer, sizeof buffer, 0);
    if (got <= 0) {
      std::erase(clients_, client);
      ::close(client);
      return;
    }
    heard_.append(buffer, static_cast<std::size_t>(got));
    if (!answer_.empty()) ::send(client, answer_.data(), answer_.size(), MSG_NOSIGNAL);
  }

  cu::test::LoopbackSocket socket_;
  std::string answer_;
  std::string heard_;
  std::atomic<bool> stop_ = false;
  std::vector<int> clients_;
  std::thread thread_;
};

}  // namespace cu::odbc::test
