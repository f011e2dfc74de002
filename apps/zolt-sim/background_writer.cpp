#include "apps/zolt-sim/background_writer.h"

#include <limits.h>
#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>

#include "lib/os/descriptor.h"

namespace zolt_sim {
namespace {

constexpr std::size_t kMostQueued = 100000;
constexpr std::chrono::milliseconds kLastWait{1000};

}  // namespace

BackgroundWriter::BackgroundWriter(int descriptor)
    : descriptor_(descriptor),
      wakeUp_(zolt_os::checked(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), "eventfd")),
      thread_([this] { run(); }) {}

BackgroundWriter::~BackgroundWriter() {
    stop_.raise();
    thread_.join();
}

void BackgroundWriter::write(const std::string& text) {
    {
        const std::lock_guard guard(lock_);
        if (queue_.size() >= kMostQueued) {
            ++dropped_;
            return;
        }
        if (dropped_ > 0) {
            queue_.push_back("(" + std::to_string(dropped_) + " lines dropped)\n");
            dropped_ = 0;
        }
        queue_.push_back(text);
    }
    static_cast<void>(::eventfd_write(wakeUp_.get(), 1));
}

std::string BackgroundWriter::takeQueued() {
    const std::lock_guard guard(lock_);
    std::string text;
    while (!queue_.empty() && text.size() < PIPE_BUF) {
        text += queue_.front();
        queue_.pop_front();
    }
    return text;
}

bool BackgroundWriter::awaitRoom() {
    std::array<pollfd, 2> events{pollfd{descriptor_, POLLOUT, 0}, pollfd{stop_.get(), POLLIN, 0}};
    while (::poll(events.data(), events.size(), -1) < 0) {
    }
    if (events[0].revents != 0) {
        return true;
    }
    return ::poll(events.data(), 1, static_cast<int>(kLastWait.count())) > 0;
}

bool BackgroundWriter::writeAll(const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        if (!awaitRoom()) {
            return false;
        }
        // A pipe that polls as writable takes this much without blocking.
        const std::size_t piece = std::min<std::size_t>(text.size() - done, PIPE_BUF);
        const ssize_t count = ::write(descriptor_, text.data() + done, piece);
        if (count < 0 && errno != EINTR && errno != EAGAIN) {
            return false;
        }
        done += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    return true;
}

void BackgroundWriter::run() {
    std::array<pollfd, 2> events{pollfd{wakeUp_.get(), POLLIN, 0}, pollfd{stop_.get(), POLLIN, 0}};
    bool writable = true;
    for (;;) {
        if (::poll(events.data(), events.size(), -1) < 0) {
            continue;
        }
        eventfd_t ignored = 0;
        static_cast<void>(::eventfd_read(wakeUp_.get(), &ignored));
        for (std::string text = takeQueued(); !text.empty(); text = takeQueued()) {
            // What comes after a failure is taken from the queue and dropped.
            writable = writable && writeAll(text);
        }
        if (events[1].revents != 0) {
            return;
        }
    }
}

}  // namespace zolt_sim
