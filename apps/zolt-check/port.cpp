#include "apps/zolt-check/port.h"

#include <limits>

#include "apps/zolt-check/wording.h"

namespace check {
namespace {

constexpr std::int32_t kHighestPort = std::numeric_limits<std::uint16_t>::max();
/// Ports below are for privileged programs.
constexpr std::uint16_t kFirstFreePort = 1024;

}  // namespace

std::uint16_t boundPort(std::int32_t port) {
    return static_cast<std::uint16_t>(port);
}

std::string portSurprise(const std::string& typed, std::int32_t port) {
    if (port > kHighestPort) {
        const std::string text = asCounted("Port", typed, port) + " is above " +
                                 std::to_string(kHighestPort) + ": only its low 16 bits count, ";
        if (boundPort(port) == 0) {
            return text + "which are 0: the system picks a port at every opening";
        }
        return text + "which is port " + std::to_string(boundPort(port)) +
               (boundPort(port) < kFirstFreePort ? ", one that needs privileges" : "");
    }
    const std::string why = whyCounted(typed, port);
    return why.empty()
               ? ""
               : "Port " + inQuotes(typed) + " counts as " + std::to_string(port) + ": " + why;
}

}  // namespace check
