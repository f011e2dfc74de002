#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/adapter/faults.h"
#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/bus_model.h"
#include "apps/zolt-sim/trace.h"

namespace zolt_sim {

/// One control: a line of text that plays the world around the bus.
struct Control {
    enum class Verb {
        kShow,
        kSet,
        kPress,
        kRelease,
        kTurn,
        kKey,
        kInsert,
        kRemove,
        kUnplug,
        kPlug,
        kFault,
        kFaults,
        kFaultsClear,
        kTrace,
        kHelp,
        kQuit
    };
    Verb verb = Verb::kHelp;
    /// Absent for a control without a card, and for a show of the whole bus.
    std::optional<std::uint8_t> address;
    /// A block, a channel or an input.
    unsigned number = 0;
    std::uint8_t value = 0;
    /// Where "plug" links the adapter; empty for the path of the last time.
    std::string path;
    SlotSetup slot;
    Fault fault;
    TraceFilter filter = TraceFilter::kCommands;
};

/// Throws Error with the reason.
Control parseControl(std::string_view line);

/// One line per control: how it is written and what it does.
std::vector<std::string> controlHelp();

/// The result of one control.
struct ControlAnswer {
    std::vector<std::string> lines;
    /// Empty if the control has been carried out.
    std::string error;

    bool ok() const { return error.empty(); }
    /// The lines, then "ok" or "error: REASON". Each ends with a line feed.
    std::string text() const;
};

/// What the controls act upon.
struct ControlTarget {
    /// Guards `model` and `faults`.
    std::mutex& lock;
    BusModel& model;
    FaultList& faults;
    Trace& trace;
    /// Called without the lock. A function that refuses throws Error.
    std::function<void(const std::string& path)> plug;
    std::function<void()> unplug;
    std::function<void()> quit;
};

/// Reads and carries out one control. Any thread may call it. The lock is held only for
/// operations in memory.
ControlAnswer runControl(std::string_view line, const ControlTarget& target);

}  // namespace zolt_sim
