#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "apps/zolt-sim/adapter/device_link.h"
#include "apps/zolt-sim/adapter/frame_assembler.h"
#include "apps/zolt-sim/adapter/pause.h"
#include "apps/zolt-sim/adapter/pty_pair.h"
#include "apps/zolt-sim/cards/bus_model.h"
#include "bench/report/statistics.h"
#include "bench/system/basics/clock.h"
#include "bench/system/machine/placement.h"
#include "lib/os/event.h"

namespace bench {

inline constexpr unsigned kBaud = 460800;
inline constexpr const char* kAdapter = "/dev/ttyUSB0";

/// A bus of cards at the other end of a pseudo-terminal, which records the times of requests
/// and answers. Its thread answers and does nothing else. An answer has the inputs of the
/// moment at which the last byte of the request has come over the wire.
class Slave {
  public:
    /// An output request.
    struct Output {
        std::uint8_t card = 0;
        /// The first data byte.
        std::uint8_t value = 0;
        /// The times of the request at the adapter's port, of its last byte at the card, and
        /// of the card's answer at the port.
        Time atPort;
        Time atCard;
        Time answered;
    };
    struct Polls {
        std::size_t count = 0;
        Time last;
        /// The sum of the times from a request at the port to the answer there.
        Clock::duration held{};
    };

    /// The bus is plugged in as kAdapter while the object lives; `busText` is what a bus file
    /// contains.
    Slave(const std::string& busText, const Placement& placement);
    ~Slave();
    Slave(const Slave&) = delete;
    Slave& operator=(const Slave&) = delete;

    /// Applies from the next request on: kBaud, or 0 for answers that are not held back.
    void setBaud(unsigned baud) { baud_ = baud; }

    /// Block 0 of an input card becomes `value` at the time `due`.
    void changeInput(Time due, std::uint8_t card, std::uint8_t value);

    /// Waits until the output request with this number, counted from 0 since forgetOutputs,
    /// has been answered; nothing when that takes longer than `patience`.
    std::optional<Output> awaitOutput(std::size_t number, std::chrono::milliseconds patience);
    std::vector<Output> outputs() const;
    void forgetOutputs();

    /// The polls so far, by address.
    std::array<Polls, zolt_sim::wire::kAddressCount> polls() const;
    /// The polls of all cards so far, added up.
    Polls allPolls() const;
    /// The time of the last answer to a discovery.
    std::optional<Time> discovered() const;
    /// How often the host has closed the port although the answer to its last request had
    /// been given in time.
    std::size_t missedAnswers() const;
    /// The delays of the answers after the time at which they were due.
    Histogram lateness() const;

  private:
    struct Change {
        Time due;
        std::uint8_t card = 0;
        std::uint8_t value = 0;
    };

    void run();
    void serve();
    void answer(const zolt_sim::Bytes& request, Time received);
    /// The host has closed the port; `unanswered` is whether a request was still there.
    void noteClosed(bool unanswered);
    zolt_sim::Bytes frameFor(const zolt_sim::Bytes& request, Time atCard);
    /// The caller sets the three times; note() takes card and value from the request.
    void note(const zolt_sim::Bytes& request, Output times);

    std::atomic<unsigned> baud_ = kBaud;
    zolt_sim::PtyPair pair_;
    zolt_sim::FrameAssembler assembler_;
    Time wireFree_;
    mutable std::mutex lock_;
    std::condition_variable answered_;
    zolt_sim::BusModel model_;
    std::optional<Change> change_;
    std::vector<Output> outputs_;
    std::array<Polls, zolt_sim::wire::kAddressCount> polls_{};
    std::optional<Time> discovered_;
    /// The last request has been answered in time, and the host has not closed the port since.
    bool answeredInTime_ = false;
    std::size_t missedAnswers_ = 0;
    Histogram lateness_;
    zolt_os::Event stop_;
    zolt_sim::DeviceLink link_;
    std::thread thread_;  // last: runs on all the others
};

}  // namespace bench
