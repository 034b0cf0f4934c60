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

// A port that speaks SQL Server's protocol over TLS, as far as a login and a plain statement need it. What it
// answers to a statement, and whether it stays then, is the test's. It does so in processes of its own, one
// for each client: the ends of a stream are looked at by the process that holds them.
class TdsServer {
 public:
  enum class Then {
    Stays,
    EndsTls,              // in order, by the alert that closes it; the stream stays open
    Leaves,               // ends TLS in order, and the stream
    LeavesWhenCancelled,  // the same once the client gives up the rest
  };
  struct Reply {
    std::string tokens;
    Then then = Then::Stays;
  };
  // The statement's text; "" for the login.
  using Answer = std::function<Reply(std::string_view statement)>;
  // What answers to a client that has named that database.
  using Sessions = std::function<Answer(const std::string& database)>;

  enum class Tls { Offered, Missing };

  explicit TdsServer(const Answer& answer, Tls tls = Tls::Offered)
      : TdsServer(Sessions([answer](const std::string&) { return answer; }), tls) {}
  explicit TdsServer(Sessions sessions, Tls tls = Tls::Offered);
  ~TdsServer();
  TdsServer(const TdsServer&) = delete;
  TdsServer& operator=(const TdsServer&) = delete;

  int port() const { return socket_.port(); }
  // All bytes that have come in the clear.
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
  bool receive(Client& client, Packet& packet) const;  // a message, of one packet or several
  void leave(Client& client, Then how) const;

  Sessions sessions_;
  Tls tls_;
  LoopbackSocket socket_;
  std::unique_ptr<SSL_CTX, FreeContext> context_;
  std::array<int, 2> ears_{-1, -1};  // a pipe, out of the other process
  std::string heard_;
  pid_t process_ = -1;
};

}  // namespace cu::test
