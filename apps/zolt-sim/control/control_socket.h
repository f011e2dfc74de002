#pragma once

#include <string>

#include "lib/os/descriptor.h"

namespace zolt_sim {

/// A Unix stream socket on which controls come in. It listens as long as the object
/// lives; the destructor removes the file. A socket file on which no program listens any
/// more is replaced; anything else at the path stays untouched.
class ControlSocket {
  public:
    /// Throws Error with "PATH: REASON".
    explicit ControlSocket(std::string path);
    ~ControlSocket();
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    int descriptor() const { return socket_.get(); }

    /// The connection of a waiting client, non-blocking; invalid if there is none.
    zolt_os::Descriptor accept();

  private:
    std::string path_;
    zolt_os::Descriptor socket_;
};

}  // namespace zolt_sim
