#include "lib/ports/blocking/port_follower.h"

#include <utility>

namespace zolt_ports {
namespace {

constexpr const char* kWhen = "while its lines were awaited";

}  // namespace

PortFollower::PortFollower(OpenPort port, const std::vector<std::string>& separators)
    : connection_(std::move(port.connection)), lines_(separators) {
    lines_.feed(port.received);
}

std::optional<std::string> PortFollower::next(const zolt_os::Deadline& deadline) {
    for (;;) {
        if (auto line = lines_.next()) {
            return line;
        }
        std::string bytes;
        switch (connection_.receive(bytes, deadline)) {
            case Connection::Wait::kBytes:
                lines_.feed(bytes);
                break;
            case Connection::Wait::kEnd:
                throw connection_.cut(kWhen);
            case Connection::Wait::kTimeout:
                return std::nullopt;
        }
    }
}

void PortFollower::receive() {
    std::string bytes;
    if (connection_.receiveNow(bytes) == Connection::Wait::kEnd) {
        throw connection_.cut(kWhen);
    }
    lines_.feed(bytes);
}

}  // namespace zolt_ports
