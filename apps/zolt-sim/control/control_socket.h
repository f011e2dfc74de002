// A Unix stream socket on which controls come in.
#pragma once

#include <string>

#include "apps/zolt-sim/line/descriptor.h"

namespace sim {

// Listens as long as the object lives, then removes its file. A socket that
// nobody listens on any more is replaced; anything else at the path is not touched.
class ControlSocket {
  public:
    // Throws std::runtime_error with "PATH: REASON".
    explicit ControlSocket(std::string path);
    ~ControlSocket();
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    int descriptor() const { return socket_.get(); }

    // A waiting client, non-blocking; without descriptor when there is none.
    Descriptor accept();

  private:
    std::string path_;
    Descriptor socket_;
};

}  // namespace sim
