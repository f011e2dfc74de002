#include "apps/zoltctl/output/live_output.h"

#include <sys/eventfd.h>

#include <cerrno>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/ports/descriptor.h"

namespace ctl {
namespace {

Descriptor makeEvent() {
    Descriptor event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!event.valid()) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
    return event;
}

void raise(const Descriptor& event) {
    ::eventfd_write(event.get(), 1);
}

}  // namespace

struct LiveOutput::Shared {
    /// A failure's parts: an exception that two threads hold is let go of in the
    /// standard library, where the thread sanitizer does not see its counting.
    struct Problem {
        Status status;
        std::string text;
    };

    Descriptor failedEvent = makeEvent();
    Descriptor hurryEvent = makeEvent();

    std::mutex mutex;
    std::condition_variable changed;
    // Under the mutex:
    std::deque<std::function<std::string()>> lines;
    bool begun = false;  ///< `before` is over
    std::size_t written = 0;
    bool ending = false;
    bool ended = false;
    std::optional<Problem> problem;

    /// Nothing at the end.
    std::function<std::string()> next() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return ending || !lines.empty(); });
        if (lines.empty()) {
            return nullptr;
        }
        auto line = std::move(lines.front());
        lines.pop_front();
        return line;
    }

    void write(const std::function<void(int)>& before) {
        before(hurryEvent.get());
        {
            const std::lock_guard lock(mutex);
            begun = true;
            changed.notify_all();
        }
        while (const auto line = next()) {
            // The reader may be slow as long as the daemon is listened to.
            writeOut(line() + '\n', std::nullopt);
            const std::lock_guard lock(mutex);
            ++written;
            changed.notify_all();
        }
    }

    void run(const std::function<void(int)>& before) {
        std::optional<Problem> met;
        try {
            write(before);
        } catch (const Failure& failure) {
            met = Problem{failure.status(), failure.what()};
        } catch (const std::exception& error) {
            met = Problem{Status::kLocalFile, error.what()};
        }
        const std::lock_guard lock(mutex);
        problem = met;
        ended = true;
        if (problem) {
            raise(failedEvent);
        }
        changed.notify_all();
    }
};

LiveOutput::LiveOutput(std::function<void(int hurry)> before)
    : shared_(std::make_shared<Shared>()) {
    std::thread([shared = shared_, before = std::move(before)] { shared->run(before); }).detach();
}

void LiveOutput::add(std::function<std::string()> line) {
    const std::lock_guard lock(shared_->mutex);
    shared_->lines.push_back(std::move(line));
    shared_->changed.notify_all();
}

int LiveOutput::failed() const {
    return shared_->failedEvent.get();
}

void LiveOutput::hurry() {
    raise(shared_->hurryEvent);
}

void LiveOutput::finish(Seconds patience) {
    std::unique_lock lock(shared_->mutex);
    shared_->ending = true;
    shared_->changed.notify_all();
    // It has deadlines of its own.
    shared_->changed.wait(lock, [this] { return shared_->begun || shared_->ended; });
    const auto time = std::chrono::duration_cast<Clock::duration>(patience);
    while (!shared_->ended) {
        const std::size_t written = shared_->written;
        const bool moved = shared_->changed.wait_until(lock, Clock::now() + time, [&] {
            return shared_->ended || shared_->written != written;
        });
        if (!moved) {
            throw nobodyReads();
        }
    }
    if (shared_->problem) {
        throw Failure(shared_->problem->status, shared_->problem->text);
    }
}

}  // namespace ctl
