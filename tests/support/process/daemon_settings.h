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

/// One TCP interface as the configuration file describes it. Separators are written as in
/// the file, with \r and \n as two characters each.
struct InterfaceSettings {
    int port = 0;
    std::string inSeparator = "\\r\\n";
    std::string outSeparator = "\\r\\n";
};

/// The daemon's configuration. The defaults suit tests: fast loops, a log of everything, and
/// no polling and no discovery that a test has not asked for.
struct DaemonSettings {
    std::string logFile = defaultLogFile();
    int logLevel = 1;
    /// No value leaves the setting out.
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
