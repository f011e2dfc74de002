#pragma once

#include <string>

namespace zolt_sim {

/// The name under which the host finds the simulated adapter: a symbolic link that lives
/// as long as the object. An older link at the path is replaced; anything else there
/// stays untouched.
class DeviceLink {
  public:
    /// Throws Error with "PATH: REASON".
    DeviceLink(std::string path, std::string target);
    /// Leaves the path alone if it points elsewhere by now.
    ~DeviceLink();
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

  private:
    std::string path_;
    std::string target_;
};

}  // namespace zolt_sim
