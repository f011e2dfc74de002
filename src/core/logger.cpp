#include "core/logger.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <mutex>
#include <utility>

namespace {

/// The longest line, its line feed included; the text is cut to fit.
constexpr std::size_t kLineLimit = 999;

/// The level of all the daemon's own messages.
constexpr int kMessageLevel = 1;

// The rules of the time zone belong to the C library and are one for all loggers. No
// destructor ends this mutex under the workers when the process exits.
constinit std::mutex zoneMutex;

std::tm localTime(std::time_t now) {
    const std::lock_guard guard(zoneMutex);
    // The machine's time zone may change while the daemon runs, and localtime_r alone reads
    // the zone's rules only once.
    tzset();
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

std::string timeStamp(std::time_t now) {
    const std::tm local = localTime(now);
    std::array<char, 256> buffer{};
    return {buffer.data(),
            std::strftime(buffer.data(), buffer.size(), "%Y-%m-%d %H:%M:%S", &local)};
}

}  // namespace

LOGGER::LOGGER(const LOGGER& other) : level(other.level), fileName(other.fileName) {
    copyLockState(other);
}

LOGGER& LOGGER::operator=(const LOGGER& other) {
    level = other.level;
    fileName = other.fileName;
    copyLockState(other);
    return *this;
}

// Whether the copy is locked is known only when it is made, so the compiler cannot follow.
void LOGGER::copyLockState(const LOGGER& other) ZOLT_UNCHECKED {
    if (other.lock_.heldByCaller()) {
        lock_.Lock();
    }
}

void LOGGER::logPieces(const char* tag, std::initializer_list<std::string_view> pieces) {
    // Logging is off.
    if (fileName.empty()) {
        return;
    }
    std::string text;
    // A message that is not written still opens the file: see LOG().
    if (kMessageLevel >= level) {
        for (const std::string_view piece : pieces) {
            text += piece;
        }
    }
    LOG(tag, std::move(text), kMessageLevel);
}

void LOGGER::LOG(std::string tag, std::string text, int messageLevel) {
    const std::time_t now = std::time(nullptr);
    MutexGuard guard(lock_);
    // The file is opened non-blocking, so that a pipe without a reader cannot stop the caller.
    const int file = open(fileName.c_str(),
                          O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
    if (file == -1) {
        return;
    }
    if (messageLevel < level) {
        return;  // the file stays open: see LOG()
    }
    std::string line = timeStamp(now) + " [" + tag + "] " + text;
    line.resize(std::min(line.size(), kLineLimit - 1));
    line += '\n';
    // A full disk loses this line, and there is no other place to report that.
    [[maybe_unused]] const ssize_t written = write(file, line.data(), line.size());
    close(file);
}
