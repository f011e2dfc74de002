#include "lib/ports/packet.h"

#include "lib/ports/port_error.h"

namespace zolt_ports {

std::string packetOf(const std::string& line, const std::string& end) {
    constexpr std::size_t kLimit = 255;
    std::string packet = line + end;
    if (packet.size() > kLimit) {
        throw PortError(Reason::kBadLine, "the line is too long: with its end " +
                                              std::to_string(packet.size()) +
                                              " bytes, and the daemon takes 255");
    }
    if (packet.find('\0') != std::string::npos) {
        throw PortError(Reason::kBadLine,
                        "the line holds a 0 byte, which the daemon does not take");
    }
    return packet;
}

}  // namespace zolt_ports
