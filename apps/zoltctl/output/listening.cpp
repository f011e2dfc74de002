#include "apps/zoltctl/output/listening.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/items.h"
#include "apps/zoltctl/ports/opening.h"
#include "apps/zoltctl/stop_signals.h"

namespace ctl {
namespace {

struct Limits {
    std::optional<Seconds> time;
    std::optional<unsigned> count;
};

Limits limitsOf(const Request& request) {
    constexpr double kYear = 31'536'000;
    constexpr unsigned kManyLines = 2'000'000'000;
    Limits limits;
    if (request.has("--for")) {
        const std::string& text = request.options.at("--for");
        const auto seconds = parsePositive(text, kYear);
        if (!seconds) {
            throw Failure(Status::kUsage, quote(text) + " is no time: --for takes seconds above 0");
        }
        limits.time = Seconds(*seconds);
    }
    if (request.has("--count")) {
        const std::string& text = request.options.at("--count");
        limits.count = parseDecimal(text, kManyLines);
        if (!limits.count || *limits.count == 0) {
            throw Failure(Status::kUsage,
                          quote(text) + " is no count: --count takes a number from 1 on");
        }
    }
    return limits;
}

/// What the wait for the next line has found.
enum class Found { kBytes, kSignal, kOutputFailed, kOutputGone, kTime };

class Listener {
  public:
    Listener(OpenPort port, const Settings& settings, const Listening& listening,
             const Limits& limits)
        : port_(std::move(port)),
          lines_(listening.separators),
          convert_(listening.convert),
          left_(limits.count),
          output_(listening.before),
          patience_(settings.timeout) {
        if (limits.time) {
            end_ = Deadline::in(*limits.time).end();
        }
        lines_.feed(port_.received);
    }

    /// How it ended; the lines so far are written then, unless it throws.
    Status run(StopSignals& signals) {
        const Status status = follow(signals);
        if (status != Status::kDone) {
            output_.hurry();
        }
        port_.connection.leave();
        output_.finish(patience_);
        return status;
    }

    /// For an end by failure: what has come before it is still written.
    void finish() { output_.finish(patience_); }

  private:
    Status follow(StopSignals& signals) {
        while (takeLines()) {
            switch (wait(signals)) {
                case Found::kBytes:
                    receive();
                    break;
                case Found::kSignal:
                    return signals.take();
                case Found::kOutputGone:
                    return Status::kOutputGone;
                case Found::kOutputFailed:
                case Found::kTime:
                    return Status::kDone;
            }
        }
        return Status::kDone;
    }

    /// False when that was the last one wanted.
    bool takeLines() {
        while (const auto line = lines_.next()) {
            output_.add(convert_(*line));
            if (left_ && --*left_ == 0) {
                return false;
            }
        }
        return true;
    }

    void receive() {
        std::string bytes;
        if (port_.connection.receiveNow(bytes) == Connection::Wait::kEnd) {
            throw port_.connection.cut("while it was listened to");
        }
        lines_.feed(bytes);
    }

    Found wait(const StopSignals& signals) const {
        for (;;) {
            std::array<pollfd, 4> waited{pollfd{port_.connection.descriptor(), POLLIN, 0},
                                         pollfd{signals.descriptor(), POLLIN, 0},
                                         pollfd{output_.failed(), POLLIN, 0},
                                         // Nothing is awaited there but the end.
                                         pollfd{STDOUT_FILENO, 0, 0}};
            ::poll(waited.data(), waited.size(), milliseconds());
            constexpr std::array kMeaning{Found::kBytes, Found::kSignal, Found::kOutputFailed,
                                          Found::kOutputGone};
            // Bytes last: a port that never falls silent does not keep the others out.
            for (std::size_t i = kMeaning.size(); i-- > 0;) {
                if (waited[i].revents != 0) {
                    return kMeaning[i];
                }
            }
            if (end_ && Clock::now() >= *end_) {
                return Found::kTime;
            }
        }
    }

    int milliseconds() const {
        constexpr std::chrono::milliseconds kLongest{60'000};
        if (!end_) {
            return -1;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*end_ - Clock::now());
        return static_cast<int>(std::clamp(left, std::chrono::milliseconds{0}, kLongest).count());
    }

    OpenPort port_;
    LineReader lines_;
    std::function<std::function<std::string()>(const std::string&)> convert_;
    std::optional<unsigned> left_;
    std::optional<Clock::time_point> end_;
    LiveOutput output_;
    Seconds patience_;
};

}  // namespace

void listenTo(const Settings& settings, const Request& request, const Listening& listening) {
    const Limits limits = limitsOf(request);
    // Until it is open a signal may end the program as it likes.
    OpenPort port = openPort(settings.at(listening.port), settings.timeout);
    StopSignals signals;
    Listener listener(std::move(port), settings, listening, limits);
    Status status = Status::kDone;
    try {
        status = listener.run(signals);
    } catch (const Failure& failure) {
        if (failure.status() == Status::kCut || failure.status() == Status::kNotZolt) {
            listener.finish();
        }
        throw;
    }
    if (status != Status::kDone) {
        throw Failure(status, "");
    }
}

}  // namespace ctl
