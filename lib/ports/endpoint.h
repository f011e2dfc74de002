#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zolt_ports {

enum class Port {
    kCae,  ///< the console
    kIo,   ///< outputs and input reports
    kMon,  ///< the monitor of the IO port
};

/// "console", "IO" or "monitor".
const char* nameOf(Port port);

/// The first item that the daemon sends on a connection, whole: with its line end and
/// the carriage return that ends every item.
std::string_view bannerOf(Port port);

/// Where one of the three ports is and how it separates lines.
struct Endpoint {
    Port port = Port::kCae;
    std::string host;
    /// Nothing if the port number is not known.
    std::optional<std::uint16_t> number;
    /// What ends a line that is sent, the daemon's InpSeparator; nothing if it has to be
    /// found out.
    std::optional<std::string> lineEnd;
    std::string outSeparator = "\r\n";

    /// "console 127.0.0.1:4001"
    std::string label() const;
};

}  // namespace zolt_ports
