#include "tests/unit/bus/scripted_line.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <stdexcept>
#include <system_error>

#include "tests/support/text/bytes.h"
#include "tests/support/wait.h"

namespace {

std::atomic<ScriptedLine*> currentLine{nullptr};

ScriptedLine* lineAt(int descriptor) {
    ScriptedLine* line = currentLine;
    return line != nullptr && line->isHostEnd(descriptor) ? line : nullptr;
}

}  // namespace

// The linker's names for the calls of the program and of the system.
extern "C" {
ssize_t __real_read(int descriptor, void* buffer, size_t size);
ssize_t __wrap_read(int descriptor, void* buffer, size_t size);
ssize_t __real_write(int descriptor, const void* buffer, size_t size);
ssize_t __wrap_write(int descriptor, const void* buffer, size_t size);

ssize_t __wrap_read(int descriptor, void* buffer, size_t size) {
    if (ScriptedLine* line = lineAt(descriptor)) line->beforeRead();
    return __real_read(descriptor, buffer, size);
}

ssize_t __wrap_write(int descriptor, const void* buffer, size_t size) {
    const ssize_t written = __real_write(descriptor, buffer, size);
    ScriptedLine* line = lineAt(descriptor);
    if (line != nullptr && written > 0) {
        line->afterWrite({static_cast<const char*>(buffer), static_cast<std::size_t>(written)});
    }
    return written;
}
}

ScriptedLine::ScriptedLine() : controller_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    const char* name = nullptr;
    if (!controller_.valid() || ::grantpt(controller_.get()) != 0 ||
        ::unlockpt(controller_.get()) != 0 || (name = ::ptsname(controller_.get())) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "pseudo-terminal");
    }
    path_ = name;
    terminal_.reset(::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
    termios settings{};
    ::cfmakeraw(&settings);
    if (!terminal_.valid() || ::tcsetattr(terminal_.get(), TCSANOW, &settings) != 0) {
        throw std::system_error(errno, std::generic_category(), path_);
    }
    currentLine = this;
}

ScriptedLine::~ScriptedLine() {
    currentLine = nullptr;
}

void ScriptedLine::answer(const std::string& hex) {
    answerInPieces({{1, bytes(hex)}});
}

void ScriptedLine::answerInPieces(std::vector<Piece> pieces) {
    const std::lock_guard guard(lock_);
    script_.push(std::move(pieces));
}

void ScriptedLine::put(const std::string& hex) {
    deliver(bytes(hex));
}

void ScriptedLine::deliver(const std::string& text) {
    const std::size_t wanted = unread() + text.size();
    if (::write(controller_.get(), text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
        !support::waitUntil([&] { return unread() == wanted; })) {
        throw std::runtime_error("the line does not carry the bytes");
    }
}

std::size_t ScriptedLine::unread() const {
    int count = 0;
    ::ioctl(terminal_.get(), FIONREAD, &count);
    return static_cast<std::size_t>(count);
}

std::vector<std::string> ScriptedLine::takeWrites() {
    const std::lock_guard guard(lock_);
    return std::exchange(writes_, {});
}

int ScriptedLine::readsSinceWrite() const {
    const std::lock_guard guard(lock_);
    return reads_;
}

termios ScriptedLine::settings() const {
    termios settings{};
    ::tcgetattr(terminal_.get(), &settings);
    return settings;
}

bool ScriptedLine::isHostEnd(int descriptor) const {
    struct stat mine {};
    struct stat other {};
    return ::fstat(terminal_.get(), &mine) == 0 && ::fstat(descriptor, &other) == 0 &&
           S_ISCHR(other.st_mode) && other.st_rdev == mine.st_rdev;
}

void ScriptedLine::beforeRead() {
    const std::lock_guard guard(lock_);
    ++reads_;
    if (!pending_.empty() && pending_.front().attempt == reads_) {
        deliver(pending_.front().bytes);
        pending_.erase(pending_.begin());
    }
}

void ScriptedLine::afterWrite(const std::string& written) {
    const std::lock_guard guard(lock_);
    writes_.push_back(hexText(written));
    reads_ = 0;
    pending_.clear();
    if (!script_.empty()) {
        pending_ = std::move(script_.front());
        script_.pop();
    }
}
