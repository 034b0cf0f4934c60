#include "odbc/sockets.h"

#ifndef _WIN32
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#endif

#include <algorithm>

namespace cu::odbc {

#ifdef _WIN32

std::vector<SocketId> openSockets() { return {}; }
SocketState stateOf(const SocketId&) { return SocketState::Gone; }
void breakOff(const SocketId&) {}

#else

namespace {

bool isNetworkSocket(int descriptor, std::uint64_t& node) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISSOCK(status.st_mode)) return false;
  sockaddr_storage address{};
  socklen_t length = sizeof address;
  if (::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &length) != 0) return false;
  node = status.st_ino;
  return address.ss_family == AF_INET || address.ss_family == AF_INET6;
}

bool isStill(const SocketId& socket) {
  std::uint64_t node = 0;
  return isNetworkSocket(socket.descriptor, node) && node == socket.node;
}

bool isStream(int descriptor) {
  int type = 0;
  socklen_t length = sizeof type;
  return ::getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &length) == 0 && type == SOCK_STREAM;
}

}  // namespace

std::vector<SocketId> openSockets() {
  std::vector<SocketId> sockets;
  constexpr rlim_t kMost = 4096;
  rlimit limit{};
  ::getrlimit(RLIMIT_NOFILE, &limit);
  const int last = static_cast<int>(std::min(limit.rlim_cur, kMost));
  for (int descriptor = 0; descriptor < last; ++descriptor) {
    SocketId socket{descriptor, 0};
    if (isNetworkSocket(descriptor, socket.node)) sockets.push_back(socket);
  }
  return sockets;
}

SocketState stateOf(const SocketId& socket) {
  if (!isStill(socket)) return SocketState::Gone;
#ifdef __linux__
  tcp_info information{};
  socklen_t length = sizeof information;
  int unread = 0;
  if (::getsockopt(socket.descriptor, IPPROTO_TCP, TCP_INFO, &information, &length) == 0 &&
      information.tcpi_state == TCP_CLOSE_WAIT && ::ioctl(socket.descriptor, FIONREAD, &unread) == 0 &&
      unread == 0) {
    return SocketState::Finished;
  }
#endif
  return SocketState::Open;
}

// A stream that is only shut down looks like one with an end to read, which a driver may read repeatedly.
// Dissolving the connection makes its calls fail.
void breakOff(const SocketId& socket) {
  if (!isStill(socket)) return;
  sockaddr nowhere{};
  nowhere.sa_family = AF_UNSPEC;
  if (isStream(socket.descriptor) && ::connect(socket.descriptor, &nowhere, sizeof nowhere) == 0) return;
  ::shutdown(socket.descriptor, SHUT_RDWR);
}

#endif

}  // namespace cu::odbc
