#pragma once

#include <netinet/in.h>

#include <cstdint>

/// The sockets that this process has open, as the system sees them.
namespace own_sockets {

/// The number of a listening socket, the only one there is; -1 for none.
int listening();
/// The port that it listens on, in host order; 0 when nothing listens.
std::uint16_t listeningPort();
/// The number of the connection that was accepted on `port`; -1 for none.
int accepted(std::uint16_t port);
/// The address that a socket is bound to.
sockaddr_in local(int socket);
/// The other side of a connection.
sockaddr_in peer(int socket);
/// The value of a socket option that is an int.
int option(int socket, int level, int name);
/// Makes the system keep few bytes that the other side has no room for.
void shrinkSendBuffer(int socket);
/// Waits until a read of the socket would not block; false after a generous
/// time.
bool readable(int socket);
/// How many descriptors of any kind this process has open.
int openDescriptors();

}  // namespace own_sockets
