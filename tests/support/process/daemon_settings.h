#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace support {

inline constexpr std::uint16_t kCaePort = 5001;
inline constexpr std::uint16_t kIoPort = 5002;
inline constexpr std::uint16_t kMonPort = 5003;
inline constexpr const char* kConfigurationFile = "/etc/zolt/zoltconf.xml";
inline constexpr const char* kPidFile = "/run/zolt/zolt.pid";

/// One TCP interface as the configuration file describes it; separators are
/// written as there, with \r and \n in letters.
struct InterfaceSettings {
    int port = 0;
    std::string inSeparator = "\\r\\n";
    std::string outSeparator = "\\r\\n";
};

/// The daemon's configuration. The defaults suit tests: quick loops, everything
/// logged, nothing on the bus that was not asked for.
struct DaemonSettings {
    std::string logFile = defaultLogFile();
    int logLevel = 1;
    /// Without a value the setting is left out.
    std::optional<int> percent = 50;
    bool polling = false;
    bool discover = false;
    InterfaceSettings io{kIoPort};
    InterfaceSettings cae{kCaePort};
    InterfaceSettings mon{kMonPort};

    static std::string defaultLogFile();
    std::string toXml() const;
};

}  // namespace support
