#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/adapter/adapter.h"
#include "apps/zolt-sim/adapter/faults.h"
#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/bus_model.h"
#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/trace.h"

namespace zolt_sim {

struct BusOptions {
    /// Where the host finds the adapter: a symbolic link, which the bus makes and removes.
    std::string link;
    /// Speed of the wire in bits per second, 8N1; 0 answers at once.
    unsigned baud = 460800;
    /// Whether trace() keeps the last 100000 lines.
    bool keepTrace = true;
    /// A receiver of trace lines.
    struct Sink {
        Trace::Sink sink;
        /// Whether the trace filter applies to the sink.
        bool filtered = true;
    };
    /// They get the lines from the first one on.
    std::vector<Sink> sinks = {};
    TraceFilter filter = TraceFilter::kCommands;
    /// What the control "quit" does; without it, "quit" is refused.
    std::function<void()> quit = {};
};

/// A whole card bus on a pseudo-terminal, for programs and for tests in one process.
/// Any thread may call its functions.
class SimulatedBus : private AdapterUser {
  public:
    /// The adapter is plugged in when the constructor returns. Throws Error.
    SimulatedBus(const BusLayout& layout, BusOptions options);
    /// The same with the text of a bus file.
    SimulatedBus(std::string_view busText, BusOptions options);
    /// Removes the link; the host sees a hang-up.
    ~SimulatedBus() override;

    /// Carries out one control; docs/simulated-bus.md lists the controls.
    ControlAnswer control(std::string_view line);

    /// Every kept trace line, polls included, oldest first.
    std::vector<std::string> trace() const;

    /// The moment from which the times of the trace count.
    Clock::time_point start() const { return trace_.start(); }
    /// Adds a note to the trace.
    void note(const std::string& text) { trace_.note(text); }

  private:
    WireOutput onRequest(const Bytes& request) override;
    void onSent(const Bytes& request, const WireOutput& output) override;
    void onNote(const std::string& text) override;

    void keepLine(const std::string& line);
    void plug(const std::string& path);
    void unplug();

    BusOptions options_;
    mutable std::mutex keptLock_;
    std::deque<std::string> kept_;
    Trace trace_;

    /// Guards the model and the faults.
    std::mutex modelLock_;
    BusModel model_;
    FaultList faults_;

    /// Guards the adapter and `options_.link`. Never taken together with modelLock_:
    /// unplugging waits for the answering thread, which needs that lock.
    std::mutex adapterLock_;
    Adapter adapter_;
    ControlTarget target_;
};

}  // namespace zolt_sim
