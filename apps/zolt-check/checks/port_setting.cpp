#include "apps/zolt-check/checks/port_setting.h"

#include <limits>

#include "apps/zolt-check/findings/wording.h"
#include "lib/text/printable.h"

namespace zolt_check {
namespace {

constexpr std::int32_t kHighestPort = std::numeric_limits<std::uint16_t>::max();
/// Binding a lower port needs privileges.
constexpr std::uint16_t kFirstFreePort = 1024;

}  // namespace

std::uint16_t boundPort(std::int32_t port) {
    return static_cast<std::uint16_t>(port);
}

std::string portSurprise(const std::string& typed, std::int32_t port) {
    if (port > kHighestPort) {
        const std::string text = asCounted("Port", typed, port) + " is above " +
                                 std::to_string(kHighestPort) + ": zolt uses its low 16 bits, ";
        if (boundPort(port) == 0) {
            return text + "which are 0: the system picks a port each time the interface is opened";
        }
        return text + "port " + std::to_string(boundPort(port)) +
               (boundPort(port) < kFirstFreePort ? ", which needs privileges" : "");
    }
    const std::string why = whyCounted(typed, port);
    return why.empty() ? ""
                       : "Port " + zolt_text::quote(typed) + " counts as " + std::to_string(port) +
                             ": " + why;
}

}  // namespace zolt_check
