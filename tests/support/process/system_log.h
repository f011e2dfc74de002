#pragma once

#include <string>
#include <vector>

#include "lib/os/descriptor.h"

namespace support {

/// Stands in for the system log: binds /dev/log and keeps what is sent there.
/// Needs a private view of /dev, and only one may exist at a time.
class SystemLog {
  public:
    SystemLog();
    ~SystemLog();
    SystemLog(const SystemLog&) = delete;
    SystemLog& operator=(const SystemLog&) = delete;

    /// The messages that have come since the last call, with the priority in
    /// front and without the time stamp: "<13>program: text".
    std::vector<std::string> readNew();

  private:
    zolt_os::Descriptor socket_;
};

}  // namespace support
