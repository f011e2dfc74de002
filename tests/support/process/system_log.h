#pragma once

#include <string>
#include <vector>

#include "lib/os/descriptor.h"

namespace support {

/// Takes the place of the system log: binds /dev/log and keeps what is sent there.
/// REQUIRES: a private view of /dev; only one may exist at a time.
class SystemLog {
  public:
    SystemLog();
    ~SystemLog();
    SystemLog(const SystemLog&) = delete;
    SystemLog& operator=(const SystemLog&) = delete;

    /// The messages since the last call, with the priority and without the time stamp:
    /// "<13>program: text".
    std::vector<std::string> readNew();

  private:
    zolt_os::Descriptor socket_;
};

}  // namespace support
