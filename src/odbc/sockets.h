#pragma once

#include <cstdint>
#include <vector>

namespace cu::odbc {

// A network socket of this process.
struct SocketId {
  int descriptor = -1;
  std::uint64_t node = 0;  // distinguishes a socket from a later one with the same number
  friend bool operator==(const SocketId&, const SocketId&) = default;
};

// The sockets open now; empty where a process cannot list them (Windows).
std::vector<SocketId> openSockets();

enum class SocketState : std::uint8_t {
  Gone,  // closed by this side
  Open,
  Finished,  // the other side has closed the stream in order, and all its data has been read
};
SocketState stateOf(const SocketId& socket);

// Breaks the connection under a waiting call, which then returns an error and not only an end of data.
void breakOff(const SocketId& socket);

}  // namespace cu::odbc
