#include "apps/zoltctl/output/live_output.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/output.h"
#include "lib/os/event.h"

namespace zoltctl {

using zolt_os::Clock;
using zolt_os::Event;
using zolt_os::Seconds;

struct LiveOutput::Shared {
    /// A failure by its values. An exception shared by two threads would be released by the
    /// standard library, whose reference count the thread sanitizer does not see.
    struct Problem {
        Status status;
        std::string text;
    };

    explicit Shared(std::shared_ptr<LineFormat> lineFormat) : format(std::move(lineFormat)) {}

    const std::shared_ptr<LineFormat> format;
    Event failedEvent;
    Event hurryEvent;

    std::mutex mutex;
    std::condition_variable changed;
    // The mutex guards all members below.
    std::deque<TimedLine> lines;
    bool begun = false;  ///< the format is prepared
    std::size_t written = 0;
    bool ending = false;  ///< no more lines are added
    bool ended = false;   ///< the thread writes no more
    std::optional<Problem> problem;

    /// Waits for the next line; nothing if there are no more.
    std::optional<TimedLine> next() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return ending || !lines.empty(); });
        if (lines.empty()) {
            return std::nullopt;
        }
        TimedLine line = std::move(lines.front());
        lines.pop_front();
        return line;
    }

    void write() {
        format->prepare(hurryEvent.get());
        {
            const std::lock_guard lock(mutex);
            begun = true;
            changed.notify_all();
        }
        while (const auto line = next()) {
            // The reader may take its time as long as the daemon is listened to.
            writeOut(format->format(*line) + '\n', std::nullopt);
            const std::lock_guard lock(mutex);
            ++written;
            changed.notify_all();
        }
    }

    void run() {
        std::optional<Problem> met;
        try {
            write();
        } catch (const Failure& failure) {
            met = Problem{failure.status(), failure.what()};
        } catch (const std::exception& error) {
            met = Problem{Status::kLocalFile, error.what()};
        }
        const std::lock_guard lock(mutex);
        problem = met;
        ended = true;
        if (problem) {
            failedEvent.raise();
        }
        changed.notify_all();
    }
};

LiveOutput::LiveOutput(std::shared_ptr<LineFormat> format)
    : shared_(std::make_shared<Shared>(std::move(format))) {
    std::thread([shared = shared_] { shared->run(); }).detach();
}

void LiveOutput::add(TimedLine line) {
    const std::lock_guard lock(shared_->mutex);
    shared_->lines.push_back(std::move(line));
    shared_->changed.notify_all();
}

int LiveOutput::failed() const {
    return shared_->failedEvent.get();
}

void LiveOutput::hurry() {
    shared_->hurryEvent.raise();
}

void LiveOutput::finish(Seconds patience) {
    std::unique_lock lock(shared_->mutex);
    shared_->ending = true;
    shared_->changed.notify_all();
    // No time limit is needed here: prepare() comes to an end by itself.
    shared_->changed.wait(lock, [this] { return shared_->begun || shared_->ended; });
    const auto time = std::chrono::duration_cast<Clock::duration>(patience);
    while (!shared_->ended) {
        const std::size_t written = shared_->written;
        const bool moved = shared_->changed.wait_until(lock, Clock::now() + time, [&] {
            return shared_->ended || shared_->written != written;
        });
        if (!moved) {
            throw outputStuck();
        }
    }
    if (shared_->problem) {
        throw Failure(shared_->problem->status, shared_->problem->text);
    }
}

}  // namespace zoltctl
