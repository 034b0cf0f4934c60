#pragma once

#include <openssl/ssl.h>
#include <sys/types.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "support/postgres_server.h"

namespace cu::test {

// A port that implements SQL Server's protocol over TLS, as far as required for a login and a plain
// statement. The test defines the answer to a statement, and whether the connection stays open. It runs in
// separate processes, one for each client, because the watchdog examines the streams of its own process.
class TdsServer {
 public:
  enum class Then {
    Stays,
    EndsTls,              // in order, by the closing alert; the stream stays open
    Leaves,               // ends TLS in order, and the stream
    LeavesWhenCancelled,  // the same once the client cancels the rest
  };
  struct Reply {
    std::string tokens;
    Then then = Then::Stays;
  };
  // The statement's text; "" for the login.
  using Answer = std::function<Reply(std::string_view statement)>;
  // The answering function for a client that has named that database.
  using Sessions = std::function<Answer(const std::string& database)>;

  enum class Tls { Offered, Missing };

  explicit TdsServer(const Answer& answer, Tls tls = Tls::Offered)
      : TdsServer(Sessions([answer](const std::string&) { return answer; }), tls) {}
  explicit TdsServer(Sessions sessions, Tls tls = Tls::Offered);
  ~TdsServer();
  TdsServer(const TdsServer&) = delete;
  TdsServer& operator=(const TdsServer&) = delete;

  int port() const { return socket_.port(); }
  // All bytes received unencrypted.
  const std::string& heardInTheClear();

 private:
  struct Client;
  struct Packet {
    int kind = 0;
    std::string content;
  };
  struct FreeContext {
    void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
  };

  [[noreturn]] void serve(pid_t parent);
  void converse(int descriptor);
  bool greet(Client& client);
  bool shakeHands(Client& client);
  bool obey(Client& client, const Packet& packet);
  bool receive(Client& client, std::size_t count, std::string& bytes) const;
  bool receive(Client& client, Packet& packet) const;  // a message of one or several packets
  void leave(Client& client, Then how) const;

  Sessions sessions_;
  Tls tls_;
  LoopbackSocket socket_;
  std::unique_ptr<SSL_CTX, FreeContext> context_;
  std::array<int, 2> ears_{-1, -1};  // a pipe from the other process
  std::string heard_;
  pid_t process_ = -1;
};

}  // namespace cu::test
