#include "tests/unit/zolt-sim/support.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <fstream>

#include "lib/os/descriptor.h"

namespace zolt_sim::test {

std::string Folder::write(const std::string& name, const std::string& text) const {
    std::ofstream(file(name), std::ios::binary) << text;
    return file(name);
}

Host::Host(const std::string& link)
    : port_(zolt_os::checked(::open(link.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC),
                             link.c_str())) {}

void Host::send(const Bytes& bytes) {
    ASSERT_EQ(::write(port_.get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

Bytes Host::receive(std::size_t count) {
    waitUntil([&] {
        std::array<std::uint8_t, 255> buffer{};
        const ssize_t got = ::read(port_.get(), buffer.data(), buffer.size());
        if (got > 0) {
            received_.insert(received_.end(), buffer.begin(), buffer.begin() + got);
        }
        return received_.size() >= count;
    });
    return std::exchange(received_, {});
}

Bytes Host::ask(const Bytes& payload) {
    Bytes frame{static_cast<std::uint8_t>(payload.size())};
    frame.insert(frame.end(), payload.begin(), payload.end());
    send(frame);
    Bytes answer = receive(1);
    if (answer.empty()) {
        return {};
    }
    if (answer.size() <= answer.front()) {
        const Bytes rest = receive(answer.front() + std::size_t{1} - answer.size());
        answer.insert(answer.end(), rest.begin(), rest.end());
    }
    return {answer.begin() + 1, answer.end()};
}

bool Host::hungUp() const {
    pollfd event{port_.get(), POLLIN, 0};
    return ::poll(&event, 1, 0) > 0 && (event.revents & POLLHUP) != 0;
}

}  // namespace zolt_sim::test
