#pragma once

#include <cstdint>
#include <vector>

namespace cu::odbc {

// A network socket of this process.
struct SocketId {
  int descriptor = -1;
  std::uint64_t node = 0;  // tells a socket from a later one under the same number
  friend bool operator==(const SocketId&, const SocketId&) = default;
};

// Those that are open now; none where a process cannot find them (Windows).
std::vector<SocketId> openSockets();

enum class SocketState : std::uint8_t {
  Gone,  // this side has closed it
  Open,
  Finished,  // the other side has closed the stream in order, and all that it sent has been read
};
SocketState stateOf(const SocketId& socket);

// Breaks the way under whoever waits on it, who is told of an error and not only of an end.
void breakOff(const SocketId& socket);

}  // namespace cu::odbc
