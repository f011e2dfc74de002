#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zolt_ports {

/// The usual InpSeparators of a daemon, in the order in which a client tries them: the
/// package's configuration has the first one.
constexpr std::array<const char*, 3> kUsualLineEnds{"\r\n", "\n", "\r"};

/// What the reply to "DRVVER", sent as the first line, says about a daemon's separators.
struct SeparatorFound {
    /// The line end that was sent is the daemon's InpSeparator.
    bool known = false;
    std::string outSeparator;
};

/// Reads the separators from all bytes that came after "DRVVER" was sent. Nothing as
/// long as the reply is not whole. Throws PortError if the bytes are no reply to DRVVER.
std::optional<SeparatorFound> findSeparator(std::string_view received);

}  // namespace zolt_ports
