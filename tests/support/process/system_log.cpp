#include "tests/support/process/system_log.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "tests/support/text/time_stamp.h"

namespace support {
namespace {

constexpr const char* kPath = "/dev/log";

}  // namespace

SystemLog::SystemLog() : socket_(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    std::filesystem::remove(kPath);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, kPath, sizeof address.sun_path - 1);
    if (::bind(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        throw std::system_error(errno, std::generic_category(), kPath);
    }
}

SystemLog::~SystemLog() {
    std::error_code gone;
    std::filesystem::remove(kPath, gone);
}

std::vector<std::string> SystemLog::readNew() {
    std::vector<std::string> messages;
    std::array<char, 2048> buffer{};
    ssize_t count = 0;
    while ((count = ::recv(socket_.get(), buffer.data(), buffer.size(), 0)) >= 0) {
        std::string message(buffer.data(), static_cast<std::string::size_type>(count));
        while (!message.empty() && message.back() == '\0') message.pop_back();
        messages.push_back(withoutSystemLogTime(message));
    }
    return messages;
}

}  // namespace support
