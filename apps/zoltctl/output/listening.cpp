#include "apps/zoltctl/output/listening.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "apps/zoltctl/output/live_output.h"
#include "apps/zoltctl/stop_signals.h"
#include "lib/ports/blocking/port_follower.h"

namespace zoltctl {

using zolt_os::Clock;
using zolt_os::Deadline;
using zolt_ports::PortFollower;

namespace {

/// What the wait for the next line has found.
enum class Found { kBytes, kSignal, kOutputFailed, kOutputGone, kTime };

class Listener {
  public:
    Listener(PortFollower port, const Settings& settings, const Limits& limits,
             std::shared_ptr<LineFormat> format)
        : port_(std::move(port)),
          format_(std::move(format)),
          left_(limits.count),
          output_(format_),
          patience_(settings.timeout) {
        if (limits.time) {
            end_ = Deadline::in(*limits.time).end();
        }
    }

    /// How it ended. Unless this throws, all lines so far have been written.
    Status run(StopSignals& signals) {
        const Status status = follow(signals);
        if (status != Status::kDone) {
            output_.hurry();
        }
        port_.leave();
        output_.finish(patience_);
        return status;
    }

    /// Writes the lines that came before the port failed.
    void finish() { output_.finish(patience_); }

  private:
    Status follow(StopSignals& signals) {
        while (takeLines()) {
            switch (wait(signals)) {
                case Found::kBytes:
                    port_.receive();
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

    /// False if that was the last line that is wanted.
    bool takeLines() {
        while (auto line = port_.nextReceived()) {
            const WallTime now = std::chrono::system_clock::now();
            format_->check(*line);
            output_.add({now, std::move(*line)});
            if (left_ && --*left_ == 0) {
                return false;
            }
        }
        return true;
    }

    Found wait(const StopSignals& signals) const {
        for (;;) {
            std::array waited{pollfd{STDOUT_FILENO, 0, 0},  // only its end is awaited
                              pollfd{output_.failed(), POLLIN, 0},
                              pollfd{signals.descriptor(), POLLIN, 0},
                              pollfd{port_.descriptor(), POLLIN, 0}};
            if (::poll(waited.data(), waited.size(), zolt_os::pollMilliseconds(end_)) < 0 &&
                errno != EINTR) {
                throw std::system_error(errno, std::generic_category(), "poll");
            }
            const auto& [output, failure, signal, bytes] = waited;
            if (output.revents != 0) {
                return Found::kOutputGone;
            }
            if (failure.revents != 0) {
                return Found::kOutputFailed;
            }
            if (signal.revents != 0) {
                return Found::kSignal;
            }
            // Bytes come last: a port that never falls silent must not hide the others.
            if (bytes.revents != 0) {
                return Found::kBytes;
            }
            if (end_ && Clock::now() >= *end_) {
                return Found::kTime;
            }
        }
    }

    PortFollower port_;
    std::shared_ptr<LineFormat> format_;
    std::optional<unsigned> left_;
    std::optional<Clock::time_point> end_;
    LiveOutput output_;
    zolt_os::Seconds patience_;
};

}  // namespace

void listenTo(const Settings& settings, zolt_ports::Port port,
              const std::vector<std::string>& separators, const Limits& limits,
              std::shared_ptr<LineFormat> format) {
    // Until the port is open, a signal may end the program at once.
    PortFollower follower(zolt_ports::openPort(settings.at(port), settings.timeout), separators);
    StopSignals signals;
    Listener listener(std::move(follower), settings, limits, std::move(format));
    Status status = Status::kDone;
    try {
        status = listener.run(signals);
    } catch (const zolt_ports::PortError&) {
        listener.finish();
        throw;
    }
    if (status != Status::kDone) {
        throw Failure(status, "");
    }
}

}  // namespace zoltctl
