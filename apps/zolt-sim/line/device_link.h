// The name under which the host finds the simulated adapter.
#pragma once

#include <string>

namespace sim {

// A symbolic link that lives as long as the object. An older link at the path
// is replaced; anything else there is never touched.
class DeviceLink {
  public:
    // Throws std::runtime_error with "PATH: REASON".
    DeviceLink(std::string path, std::string target);
    // Leaves the path alone when it has come to point elsewhere.
    ~DeviceLink();
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

  private:
    std::string path_;
    std::string target_;
};

}  // namespace sim
