#include "server/tds_server.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <openssl/x509.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <stdexcept>

#include "server/tds_tokens.h"

namespace cu::test {
namespace {

constexpr std::size_t kHeader = 8;
constexpr int kStatement = 0x01;
constexpr int kReply = 0x04;
constexpr int kCancel = 0x06;
constexpr int kLogin = 0x10;
constexpr int kPrelogin = 0x12;
constexpr std::size_t kMostInAPacket = 4000;

template <class T, void (*Free)(T*)>
struct Freed {
  void operator()(T* object) const { Free(object); }
};

// A key and a self-signed certificate for this run.
bool certify(SSL_CTX* context) {
  const std::unique_ptr<EVP_PKEY, Freed<EVP_PKEY, EVP_PKEY_free>> key(EVP_EC_gen("P-256"));
  const std::unique_ptr<X509, Freed<X509, X509_free>> certificate(X509_new());
  constexpr long kDay = 86400;
  X509_set_version(certificate.get(), X509_VERSION_3);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -kDay);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), kDay);
  X509_set_pubkey(certificate.get(), key.get());
  X509_NAME* const name = X509_get_subject_name(certificate.get());
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("prova"), -1,
                             -1, 0);
  X509_set_issuer_name(certificate.get(), name);
  return X509_sign(certificate.get(), key.get(), EVP_sha256()) != 0 &&
         SSL_CTX_use_certificate(context, certificate.get()) == 1 &&
         SSL_CTX_use_PrivateKey(context, key.get()) == 1;
}

// The server's pre-login options: its version, whether it encrypts, no concurrent results.
std::string offer(bool tls) {
  constexpr std::size_t kOptions = 3 * 5 + 1;
  const auto option = [](int kind, std::size_t at, std::size_t length) {
    return std::string{static_cast<char>(kind), 0, static_cast<char>(at), 0, static_cast<char>(length)};
  };
  return option(0, kOptions, 6) + option(1, kOptions + 6, 1) + option(4, kOptions + 7, 1) + '\xFF' +
         std::string("\x0F\x00\x07\xD0\x00\x00", 6) + (tls ? '\x01' : '\x02') + '\0';
}

std::size_t shortAt(const std::string& content, std::size_t at) {
  return static_cast<unsigned char>(content.at(at)) + 256U * static_cast<unsigned char>(content.at(at + 1));
}

// The text after the headers of a statement.
std::string statementOf(const std::string& content) {
  return tds::narrow(std::string_view(content).substr(shortAt(content, 0)));
}

// The database named in a login; "" for none.
std::string databaseOf(const std::string& content) {
  constexpr std::size_t kPlace = 68;  // offset of the name's position, followed by its length
  const std::string_view all(content);
  return tds::narrow(all.substr(shortAt(content, kPlace), 2 * shortAt(content, kPlace + 2)));
}

}  // namespace

struct TdsServer::Client {
  explicit Client(int given) : descriptor(given) {}
  ~Client() {
    SSL_free(tls);
    ::close(descriptor);
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  void send(const std::string& bytes) const {
    if (encrypted) {
      SSL_write(tls, bytes.data(), static_cast<int>(bytes.size()));
    } else {
      ::send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
  }
  // Sends a message, in as many packets as needed.
  void say(int kind, const std::string& content) const {
    for (std::size_t at = 0; at < content.size(); at += kMostInAPacket) {
      const std::string part = content.substr(at, kMostInAPacket);
      const bool last = at + part.size() == content.size();
      const std::size_t length = part.size() + kHeader;
      send(std::string{static_cast<char>(kind), static_cast<char>(last ? 1 : 0),
                       static_cast<char>(length >> 8U), static_cast<char>(length & 0xFFU), 0, 52, 1, 0} +
           part);
    }
  }

  int descriptor;
  Answer answer;
  SSL* tls = nullptr;
  bool encrypted = false;
  bool leaving = false;  // at the next cancel
};

TdsServer::TdsServer(Sessions sessions, Tls tls) : sessions_(std::move(sessions)), tls_(tls) {
  // The protocol supports no later version inside its own packets.
  context_.reset(SSL_CTX_new(TLS_server_method()));
  SSL_CTX_set_max_proto_version(context_.get(), TLS1_2_VERSION);
  if (!certify(context_.get())) throw std::runtime_error("no certificate for the server");
  ::listen(socket_.descriptor(), 8);
  if (::pipe2(ears_.data(), O_CLOEXEC | O_NONBLOCK) != 0) throw std::runtime_error("no pipe for the server");
  const pid_t parent = ::getpid();
  process_ = ::fork();
  if (process_ < 0) throw std::runtime_error("no process for the server");
  if (process_ == 0) serve(parent);
}

TdsServer::~TdsServer() {
  ::kill(process_, SIGKILL);
  ::waitpid(process_, nullptr, 0);
  for (const int each : ears_) ::close(each);
}

const std::string& TdsServer::heardInTheClear() {
  std::array<char, 4096> block{};
  for (ssize_t got = 0; (got = ::read(ears_[0], block.data(), block.size())) > 0;) {
    heard_.append(block.data(), static_cast<std::size_t>(got));
  }
  return heard_;
}

void TdsServer::serve(pid_t parent) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() != parent) ::_exit(0);
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGCHLD, SIG_IGN);
  const pid_t self = ::getpid();
  for (;;) {
    const int descriptor = ::accept(socket_.descriptor(), nullptr, nullptr);
    if (::fork() == 0) {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);
      if (::getppid() == self) converse(descriptor);
      ::_exit(0);
    }
    ::close(descriptor);
  }
}

void TdsServer::converse(int descriptor) {
  Client client(descriptor);
  if (!greet(client)) return;
  for (Packet packet; receive(client, packet);) {
    if (!obey(client, packet)) return;
  }
}

bool TdsServer::greet(Client& client) {
  Packet packet;
  if (!receive(client, packet) || packet.kind != kPrelogin) return false;
  client.say(kReply, offer(tls_ == Tls::Offered));
  return tls_ == Tls::Missing || shakeHands(client);
}

// The handshake is inside packets of the protocol; afterwards everything is inside TLS.
bool TdsServer::shakeHands(Client& client) {
  BIO* const in = BIO_new(BIO_s_mem());
  BIO* const out = BIO_new(BIO_s_mem());
  client.tls = SSL_new(context_.get());
  SSL_set_bio(client.tls, in, out);
  for (;;) {
    const int done = SSL_accept(client.tls);
    char* bytes = nullptr;
    const long count = BIO_get_mem_data(out, &bytes);
    if (count > 0) client.say(kPrelogin, std::string(bytes, static_cast<std::size_t>(count)));
    BIO_reset(out);
    if (done == 1) break;
    if (SSL_get_error(client.tls, done) != SSL_ERROR_WANT_READ) return false;
    Packet packet;
    if (!receive(client, packet)) return false;
    BIO_write(in, packet.content.data(), static_cast<int>(packet.content.size()));
  }
  SSL_set_fd(client.tls, client.descriptor);
  client.encrypted = true;
  return true;
}

bool TdsServer::obey(Client& client, const Packet& packet) {
  if (packet.kind == kCancel && client.leaving) {
    leave(client, Then::Leaves);
    return false;
  }
  if (packet.kind == kCancel) client.say(kReply, tds::cancelled());
  if (packet.kind == kLogin) client.answer = sessions_(databaseOf(packet.content));
  if (packet.kind != kLogin && packet.kind != kStatement) return true;
  const Reply reply = client.answer(packet.kind == kLogin ? std::string() : statementOf(packet.content));
  if (!reply.tokens.empty()) client.say(kReply, reply.tokens);
  client.leaving = reply.then == Then::LeavesWhenCancelled;
  if (reply.then == Then::Stays || client.leaving) return true;
  leave(client, reply.then);
  return false;
}

bool TdsServer::receive(Client& client, std::size_t count, std::string& bytes) const {
  bytes.clear();
  while (bytes.size() < count) {
    std::array<char, 4096> block{};
    const std::size_t wanted = std::min(count - bytes.size(), block.size());
    const auto got = client.encrypted ? SSL_read(client.tls, block.data(), static_cast<int>(wanted))
                                      : static_cast<int>(::recv(client.descriptor, block.data(), wanted, 0));
    if (got <= 0) return false;
    bytes.append(block.data(), static_cast<std::size_t>(got));
    if (client.encrypted) continue;
    // Once the pipe is full, what nobody reads is not kept.
    const ssize_t heard = ::write(ears_[1], block.data(), static_cast<std::size_t>(got));
    if (heard != got && errno != EAGAIN) return false;
  }
  return true;
}

bool TdsServer::receive(Client& client, Packet& packet) const {
  packet.content.clear();
  for (bool last = false; !last;) {
    std::string header;
    std::string content;
    if (!receive(client, kHeader, header)) return false;
    const auto byte = [&](std::size_t at) {
      return static_cast<std::size_t>(static_cast<unsigned char>(header[at]));
    };
    packet.kind = static_cast<int>(byte(0));
    last = (byte(1) & 1U) != 0;
    if (!receive(client, byte(2) * 256 + byte(3) - kHeader, content)) return false;
    packet.content += content;
  }
  return true;
}

// And waits for the client to disconnect.
void TdsServer::leave(Client& client, Then how) const {
  if (client.encrypted) SSL_shutdown(client.tls);
  if (how == Then::Leaves) ::shutdown(client.descriptor, SHUT_WR);
  client.encrypted = false;
  std::string rest;
  while (receive(client, 1, rest)) {
  }
}

}  // namespace cu::test
