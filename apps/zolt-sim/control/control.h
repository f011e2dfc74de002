// The text commands that play the world around the bus: one line in, zero or
// more lines and a verdict out.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/bus_model.h"
#include "apps/zolt-sim/line/faults.h"
#include "apps/zolt-sim/trace.h"

namespace sim {

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
    std::optional<std::uint8_t> address;  // absent only for a show of the whole bus
    unsigned number = 0;                  // block, channel or input
    std::uint8_t value = 0;
    std::string path;  // of plug; empty: the same as before
    SlotSetup slot;
    Fault fault;
    TraceFilter filter = TraceFilter::kCommands;
};

// Throws std::invalid_argument with the reason.
Control parseControl(std::string_view line);

// One line per control: how it is written and what it does.
std::vector<std::string> controlHelp();

struct ControlAnswer {
    std::vector<std::string> lines;
    std::string error;  // empty: carried out

    bool ok() const { return error.empty(); }
    // The lines, then "ok" or "error: REASON"; each with a line feed.
    std::string text() const;
};

// What the controls act upon.
struct ControlTarget {
    std::mutex& lock;  // guards model and faults
    BusModel& model;
    FaultList& faults;
    Trace& trace;
    // Called without the lock. A refusal is a thrown std::exception.
    std::function<void(const std::string& path)> plug;
    std::function<void()> unplug;
    std::function<void()> quit;
};

// May be called by any thread; the lock is only held for memory operations.
ControlAnswer runControl(std::string_view line, const ControlTarget& target);

}  // namespace sim
