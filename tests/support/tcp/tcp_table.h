#pragma once

namespace support {

/// True if the program at the other end of a TCP connection within this network namespace has
/// read every byte that was sent, or has closed its end.
bool peerHasReadAll(int socket);

}  // namespace support
