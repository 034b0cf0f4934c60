#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <grp.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "support/temp_folder.h"

namespace cu::test {

// A loopback socket, bound to an unused port.
class LoopbackSocket {
 public:
  LoopbackSocket() : descriptor_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    if (descriptor_ < 0 || ::bind(descriptor_, plain, length) != 0 ||
        ::getsockname(descriptor_, plain, &length) != 0) {
      throw std::runtime_error("no socket on the loopback");
    }
    port_ = ntohs(address.sin_port);
  }
  ~LoopbackSocket() { ::close(descriptor_); }
  LoopbackSocket(const LoopbackSocket&) = delete;
  LoopbackSocket& operator=(const LoopbackSocket&) = delete;
  int descriptor() const { return descriptor_; }
  int port() const { return port_; }

 private:
  int descriptor_;
  int port_ = 0;
};

// A private PostgreSQL server: its data are in a folder deleted with the object; it listens on the loopback,
// on a free port, under a user without rights where the test itself has them. It ends with the object, and
// with the test however that ends.
class PostgresServer {
 public:
  static constexpr const char* kUser = "prova";
  static constexpr const char* kPassword = "se;gr}e+t%o";

  PostgresServer() : bin_(folderOfPrograms()), port_(LoopbackSocket().port()) {
    if (::geteuid() == 0) {
      account_ = ::getpwnam("postgres");
      if (account_ == nullptr) account_ = ::getpwnam("nobody");
      if (account_ == nullptr) throw std::runtime_error("no user to run the server under");
      if (::chown(folder_.path().c_str(), account_->pw_uid, account_->pw_gid) != 0) {
        throw std::runtime_error("cannot give away " + folder_.path());
      }
    }
    folder_.write("password", kPassword);
    std::filesystem::permissions(folder_ / "password", std::filesystem::perms::all);
    const pid_t maker =
        launch({"initdb", "-D", data(), "-U", kUser, "--pwfile=" + (folder_ / "password"), "-E", "UTF8",
                "--locale=C", "--auth=scram-sha-256", "--no-sync", "--no-instructions"});
    int status = 0;
    ::waitpid(maker, &status, 0);
    if (status != 0) throw std::runtime_error("initdb: " + folder_.read("log"));
    start();
  }
  ~PostgresServer() { stop(); }
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  void start() {
    std::filesystem::remove(folder_ / "log");
    process_ = launch({"postgres", "-D", data(), "-c", "listen_addresses=127.0.0.1", "-p",
                       std::to_string(port_), "-c", "unix_socket_directories=", "-c", "fsync=off", "-c",
                       "shared_buffers=32MB", "-c", "max_connections=10"});
    constexpr int kSteps = 1500;
    for (int i = 0; i < kSteps; ++i) {
      if (folder_.read("log").find("ready to accept connections") != std::string::npos) return;
      if (::waitpid(process_, nullptr, WNOHANG) == process_) break;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    throw std::runtime_error("the server did not start: " + folder_.read("log"));
  }
  // Immediately, including running statements.
  void stop() {
    if (process_ < 0) return;
    ::kill(process_, SIGCONT);
    ::kill(process_, SIGQUIT);
    ::waitpid(process_, nullptr, 0);
    process_ = -1;
  }

  int port() const { return port_; }
  // A connection text without the password.
  std::string text(const std::string& driver = "PostgreSQL Unicode") const {
    return "Driver={" + driver + "};Server=127.0.0.1;Port=" + std::to_string(port_) +
           ";Database=postgres;CommLog=0;UID=" + kUser;
  }

 private:
  std::string data() const { return folder_ / "data"; }

  static std::string folderOfPrograms() {
    for (const auto& version : std::filesystem::directory_iterator("/usr/lib/postgresql")) {
      if (std::filesystem::exists(version.path() / "bin/initdb")) return (version.path() / "bin").string();
    }
    throw std::runtime_error("no PostgreSQL server is installed");
  }

  pid_t launch(std::vector<std::string> arguments) const {
    // By its full path: the programs find each other next to the path by which they were started.
    const std::string program = bin_ + "/" + arguments.front();
    arguments.front() = program;
    std::vector<char*> pointers;
    for (std::string& each : arguments) pointers.push_back(each.data());
    pointers.push_back(nullptr);
    const std::string log = folder_ / "log";
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child != 0) return child;
    if (account_ != nullptr && (::setgroups(0, nullptr) != 0 || ::setgid(account_->pw_gid) != 0 ||
                                ::setuid(account_->pw_uid) != 0)) {
      ::_exit(126);
    }
    ::prctl(PR_SET_PDEATHSIG, SIGQUIT);
    if (::getppid() != parent || ::chdir(folder_.path().c_str()) != 0) ::_exit(126);
    const int file = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    ::dup2(file, STDOUT_FILENO);
    ::dup2(file, STDERR_FILENO);
    for (int descriptor = STDERR_FILENO + 1; descriptor < 256; ++descriptor) ::close(descriptor);
    ::setenv("LC_ALL", "C", 1);
    ::execv(program.c_str(), pointers.data());
    ::_exit(127);
  }

  TempFolder folder_;
  std::string bin_;
  int port_;
  const passwd* account_ = nullptr;
  pid_t process_ = -1;
};

}  // namespace cu::test
